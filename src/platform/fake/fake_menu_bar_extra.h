// SPDX-License-Identifier: MIT
// A bar that keeps what is inserted. std only.
#pragma once

#include "platform/menu_bar_extra.h"

#include <optional>
#include <string>
#include <utility>

namespace dwellkey {

class FakeMenuBarExtra final : public MenuBarExtra {
public:
    [[nodiscard]] Subscription insert(MenuBarItem newItem) override {
        ++insertCount;
        item = std::move(newItem);
        return Subscription([this] { item.reset(); });
    }
    [[nodiscard]] bool isHosted() const override { return hosted; }

    void setHosted(bool isHosted) {
        hosted = isHosted;
        hostingDidChange.emit();
    }

    std::optional<MenuBarItem> item;
    int insertCount = 0;
    bool hosted = true;
};

} // namespace dwellkey
