// SPDX-License-Identifier: MIT
// Alerts that answer themselves and a record of the windows asked for. std only.
#pragma once

#include "platform/windows.h"

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace dwellkey {

class FakeAlerts final : public Alerts {
public:
    int runModal(const Alert& alert) override {
        shown.push_back(alert);
        ++openCount;
        if (duringModal) {
            duringModal();
        }
        --openCount;
        if (responses.empty()) {
            return alertFirstButtonReturn;
        }
        const int response = responses.front();
        responses.pop_front();
        return response;
    }

    std::vector<Alert> shown;
    /// Answers of the alerts to come; after the last one, the first button is pressed.
    std::deque<int> responses;
    /// Runs while an alert is open: what its nested loop does.
    std::function<void()> duringModal;
    int openCount = 0;
};

class FakeWindowHost final : public WindowHost {
public:
    void open(std::string_view identifier) override { opened.emplace_back(identifier); }

    std::vector<std::string> opened;
};

/// One screen, no compositor unless told otherwise; remembers what it was asked.
class FakePanelSupport final : public PanelSupport {
public:
    std::optional<Point> activeCentre;
    bool composited = false;
    std::vector<std::uint32_t> keptAbove;
    std::vector<std::uint32_t> blurred;

    [[nodiscard]] std::optional<Point> activeWindowCentre() const override { return activeCentre; }
    [[nodiscard]] bool isComposited() const override { return composited; }
    void keepAbove(std::uint32_t nativeWindow) override { keptAbove.push_back(nativeWindow); }
    void blurBehind(std::uint32_t nativeWindow) override { blurred.push_back(nativeWindow); }
};

} // namespace dwellkey
