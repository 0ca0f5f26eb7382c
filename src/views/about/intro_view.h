// SPDX-License-Identifier: MIT
#pragma once

#include "hold/keyboard_shortcuts_model.h"
#include "platform/platform.h"
#include "support/signal.h"
#include "views/common/fixed_window.h"

#include <QCoreApplication>

namespace dwellkey {

class HoldLesson;

/// Greets at the first launch, shows what holding keys does, and says where the preferences are.
class IntroView final : public FixedWindow {
    Q_DECLARE_TR_FUNCTIONS(IntroView)

public:
    /// Both must outlive the window.
    explicit IntroView(KeyboardShortcutsModel& shortcuts = KeyboardShortcutsModel::shared(),
                       Platform& platform = Platform::shared());

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    HoldLesson* lesson_;
    Subscription hostingChanges_;
};

} // namespace dwellkey
