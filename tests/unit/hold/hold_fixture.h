// SPDX-License-Identifier: MIT
// A desktop with both shortcuts live: the models as the program composes them, on the fake
// platform.
#pragma once

#include "hold/keyboard_shortcuts_model.h"
#include "platform/fake/fake_platform.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>

namespace dwellkey {

using namespace std::chrono_literals;

/// Installed completely, that is, with the window-close script.
struct FakeDesktop : FakePlatform {
    FakeDesktop() { bundleReader.resources["CloseWindow.scpt"] = "close <<app>>"; }
};

class HoldFixture : public testing::Test {
protected:
    static constexpr std::uint32_t q = 12;
    static constexpr std::uint32_t w = 13;
    static constexpr std::uint32_t command = 0x100;

    HoldFixture() {
        model_.closeWindowCommand.setKey(Key::w);
        model_.closeWindowCommand.setModifiers({Modifier::command});
        model_.closeWindowCommand.enable();
    }

    void pressQuit() { desktop_.hotKeys.press(q, command); }
    void releaseQuit() { desktop_.hotKeys.release(q, command); }
    void pressClose() { desktop_.hotKeys.press(w, command); }
    void releaseClose() { desktop_.hotKeys.release(w, command); }
    void advance(std::chrono::nanoseconds duration) { desktop_.runLoop.advance(duration); }

    std::shared_ptr<FakeRunningApplication> inFront(const std::string& identifier) {
        return desktop_.workspace.launchInFront(identifier, identifier + " name");
    }
    std::shared_ptr<FakeRunningApplication> fileManagerInFront() {
        auto application = desktop_.workspace.launch("files", "Files");
        application->fileManager = true;
        desktop_.workspace.setFrontmost(application);
        return application;
    }
    /// Takes the application out of scope.
    void exclude(const std::string& identifier) {
        const Url url = Url::fromPath("/apps/" + identifier + ".desktop");
        desktop_.bundleReader.install(url, {identifier, std::nullopt});
        preferences_.addApp(url);
        desktop_.runLoop.runPosted();
    }

    void expectIdle() const {
        EXPECT_FALSE(timer_.isTimerViewVisible);
        EXPECT_EQ(timer_.progress.get(), 0.0);
        EXPECT_EQ(desktop_.runLoop.activeTimerCount(), 0U);
    }
    [[nodiscard]] std::size_t closedWindows() const {
        return desktop_.scriptHost.executedSources.size();
    }

    FakeDesktop desktop_;
    AlertManager alertManager_;
    PreferencesViewModel preferences_{desktop_.platform(), alertManager_};
    TimerManager timer_{desktop_.platform(), preferences_};
    AppStateManager appState_{desktop_.platform()};
    KeyCommandRegistry registry_{desktop_.platform()};
    KeyboardShortcutsModel model_{desktop_.platform(), timer_, appState_, registry_};
};

} // namespace dwellkey
