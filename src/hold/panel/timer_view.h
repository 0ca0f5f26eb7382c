// SPDX-License-Identifier: MIT
#pragma once

#include "hold/timer_manager.h"
#include "platform/once_per_turn.h"
#include "platform/qt/qt_panel_window.h"
#include "platform/run_loop.h"
#include "platform/windows.h"
#include "support/signal.h"

class QLabel;

namespace dwellkey {

class TimerProgressBar;

/// The hold panel: a title above a filling bar. It mirrors the hold timer manager and decides
/// nothing.
class TimerView final : public QtPanelWindow {
public:
    TimerView(TimerManager& timerManager, RunLoop& runLoop, PanelSupport& support);
    ~TimerView() override;

    /// Makes the native window and draws once off screen, so that the first hold finds all ready.
    void prepare();

    /// Shows the panel for the hold that is running; brings it forward when it is shown already.
    void open();

protected:
    void fitToContent() override;
    void changeEvent(QEvent* event) override;

private:
    void refresh();
    void setUpWindow();

    TimerManager& timerManager_;
    QLabel* title_;
    TimerProgressBar* bar_;
    bool didSetupWindow_ = false;
    OncePerTurn refreshOnce_;
    Subscription changes_;
};

} // namespace dwellkey
