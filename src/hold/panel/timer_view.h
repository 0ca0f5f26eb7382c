// SPDX-License-Identifier: MIT
#pragma once

#include "hold/timer_manager.h"
#include "platform/once_per_turn.h"
#include "platform/run_loop.h"
#include "platform/windows.h"
#include "support/signal.h"

#include <QPoint>
#include <QWidget>
#include <optional>

class QLabel;

namespace dwellkey {

class TimerProgressBar;

/// The hold panel: a title above a filling bar, in a window of its own that takes neither the
/// focus nor a place in the window manager's lists. It mirrors the hold timer manager and decides
/// nothing.
class TimerView final : public QWidget {
public:
    TimerView(TimerManager& timerManager, RunLoop& runLoop, PanelSupport& support);
    ~TimerView() override;

    /// Makes the native window and draws once off screen, so that the first hold finds all ready.
    void prepare();

    /// Shows the panel for the hold that is running; brings it forward when it is shown already.
    void open();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void refresh();
    void setUpWindow();
    void useBackdrop(bool composited);
    void fitToTitle();
    void centre();

    TimerManager& timerManager_;
    PanelSupport& support_;
    QLabel* title_;
    TimerProgressBar* bar_;
    bool didSetupWindow_ = false;
    std::optional<bool> composited_; // absent until the native window exists
    std::optional<QPoint> dragOffset_;
    OncePerTurn refreshOnce_;
    Subscription changes_;
};

} // namespace dwellkey
