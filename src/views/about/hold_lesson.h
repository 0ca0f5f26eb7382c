// SPDX-License-Identifier: MIT
#pragma once

#include "hold/keyboard_shortcuts_model.h"
#include "keycommands/key_command_shortcut.h"
#include "platform/once_per_turn.h"
#include "platform/platform.h"
#include "support/signal.h"

#include <QCoreApplication>
#include <QWidget>

class QLabel;

namespace dwellkey {

class SecondaryLabel;
class TimerProgressBar;

/// Says which keys are guarded and how long they must be held, and lets the user try it: while the
/// window of this widget is open, holding them over our own windows fills the bar and does nothing
/// else.
class HoldLesson final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(HoldLesson)

public:
    /// Both must outlive the widget.
    HoldLesson(KeyboardShortcutsModel& shortcuts, Platform& platform);
    ~HoldLesson() override;

    /// Whether the window of this widget is on the screen.
    void setOpen(bool isOpen);

private:
    void refresh();
    [[nodiscard]] QString summary() const;
    [[nodiscard]] QString combination(const KeyCommandShortcut& shortcut) const;

    Platform& platform_;
    TimerManager& timer_;
    KeyCommandShortcut quit_;
    KeyCommandShortcut close_;
    QLabel* summary_;
    TimerProgressBar* bar_;
    SecondaryLabel* hint_;
    OncePerTurn refreshOnce_;
    Subscription timerChanges_;
    Subscription preferencesChanges_;
    Subscription quitChanges_;
    Subscription closeChanges_;
};

} // namespace dwellkey
