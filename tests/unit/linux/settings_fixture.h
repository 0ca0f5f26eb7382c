// SPDX-License-Identifier: MIT
// A settings store on a real folder, a real loop and real inotify.
#pragma once

#include "platform/fake/fake_session.h"
#include "platform/linux/json_user_defaults.h"
#include "poll_run_loop.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace dwellkey {

class SettingsTest : public ::testing::Test {
protected:
    /// A new store, as the next start of the program has it; the one before is closed first.
    JsonUserDefaults& open() {
        opened.reset();
        opened = std::make_unique<JsonUserDefaults>(path, loop, log);
        return *opened;
    }

    [[nodiscard]] std::string text() const { return testing::readFile(path); }
    void write(std::string_view contents) const { testing::writeFile(path, contents); }

    template <typename Value>
    std::optional<Value> valueOf(std::string_view key) const {
        const DefaultsValue* value = opened->find(key);
        const auto* typed = value == nullptr ? nullptr : std::get_if<Value>(value);
        return typed == nullptr ? std::nullopt : std::optional(*typed);
    }
    std::optional<std::int64_t> number(std::string_view key) const {
        return valueOf<std::int64_t>(key);
    }

    /// Turns the loop until the store, by itself, has this number.
    bool comesToHold(std::string_view key, std::int64_t value) {
        return loop.runUntil([&] { return number(key) == value; });
    }

    testing::ScratchFolder folder;
    std::string path = folder / "config/dwellkey/settings.json";
    testing::PollRunLoop loop;
    FakeErrorLog log;
    std::unique_ptr<JsonUserDefaults> opened;
};

} // namespace dwellkey
