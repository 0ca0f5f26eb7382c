// SPDX-License-Identifier: MIT
// A hold panel that a test reads.
#pragma once

#include "binder/timer_window.h"

#include <string>
#include <string_view>
#include <vector>

namespace dwellkey {

/// What the panel's window was told; it outlives the window.
struct PanelRecord {
    bool isVisible = false;
    std::vector<std::string> calls; // "show", "center" and "close", in order
    std::string title;
    double trackWidth = 200.0;
    double fillWidth = -1.0;
    WindowAppearance appearance;
    bool isTrackingEvents = false;
    bool hasTitleLabel = true;
};

class FakeTimerWindow final : public TimerWindow {
public:
    explicit FakeTimerWindow(PanelRecord& record)
        : record_(record), label_(record), track_(record), fill_(record) {}

    TextField* titleLabel() override { return record_.hasTitleLabel ? &label_ : nullptr; }
    View* progressSpacer() override { return &track_; }
    LayoutConstraint* progressConstraint() override { return &fill_; }
    void setAppearance(const WindowAppearance& appearance) override {
        record_.appearance = appearance;
    }
    void show() override { note("show", true); }
    void center() override { note("center", record_.isVisible); }
    void close() override { note("close", false); }
    [[nodiscard]] bool isTrackingEvents() const override { return record_.isTrackingEvents; }

private:
    struct Label final : TextField {
        explicit Label(PanelRecord& panel) : record(panel) {}
        void setStringValue(const std::string& text) override { record.title = text; }
        PanelRecord& record;
    };
    struct Track final : View {
        explicit Track(PanelRecord& panel) : record(panel) {}
        [[nodiscard]] double boundsWidth() const override { return record.trackWidth; }
        PanelRecord& record;
    };
    struct Fill final : LayoutConstraint {
        explicit Fill(PanelRecord& panel) : record(panel) {}
        void setConstant(double constant) override { record.fillWidth = constant; }
        PanelRecord& record;
    };

    void note(const char* call, bool isVisible) {
        record_.calls.emplace_back(call);
        record_.isVisible = isVisible;
    }

    PanelRecord& record_;
    Label label_;
    Track track_;
    Fill fill_;
};

class FakeInterfaceFiles final : public InterfaceFiles {
public:
    std::unique_ptr<TimerWindow> loadTimerWindow(std::string_view windowNibName) override {
        loaded.emplace_back(windowNibName);
        return std::make_unique<FakeTimerWindow>(panel);
    }

    PanelRecord panel;
    std::vector<std::string> loaded;
};

} // namespace dwellkey
