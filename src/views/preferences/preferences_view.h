// SPDX-License-Identifier: MIT
#pragma once

#include "app/state/alert_manager.h"
#include "hold/keyboard_shortcuts_model.h"
#include "platform/once_per_turn.h"
#include "platform/platform.h"
#include "settings/preferences_view_model.h"
#include "support/signal.h"
#include "views/common/fixed_window.h"
#include "views/preferences/preferences_navigation.h"

#include <QPointer>
#include <QUrl>

class QCheckBox;
class QComboBox;
class QLayout;
class QMessageBox;
class QToolButton;
class QVBoxLayout;

namespace dwellkey {

class AppsListView;
class DelaySlider;

/// The preferences window. Every change takes effect at once, through the models, and every
/// change of the models shows at once, whoever made it.
class PreferencesView final : public FixedWindow {
    Q_OBJECT

public:
    struct Models {
        PreferencesViewModel& preferences;
        KeyboardShortcutsModel& keyboardShortcuts;
        AlertManager& alertManager;
        PreferencesNavigation& navigation;
    };

    /// All of them, and the platform, must outlive the window.
    PreferencesView(Models models, Platform& platform);
    ~PreferencesView() override;

protected:
    void viewWillAppear() override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void buildPage();
    [[nodiscard]] QLayout* makeShortcutRows();
    [[nodiscard]] QLayout* makeDelayRows();
    [[nodiscard]] QLayout* makeApplicationRows();
    [[nodiscard]] QLayout* makeMenuBarRows();
    void connectControls();

    void followWhileShown();
    void refresh();
    void refreshAlert();
    void addLocation(const QUrl& location);
    void removeSelectedApps();
    void presentPicker();

    PreferencesViewModel& preferencesViewModel_;
    KeyboardShortcutsModel& keyboardShortcutsModel_;
    AlertManager& alertManager_;
    PreferencesNavigation& navigation_;
    Platform& platform_;

    DelaySlider* delay_ = nullptr;
    QComboBox* scope_ = nullptr;
    AppsListView* apps_ = nullptr;
    QToolButton* plus_ = nullptr;
    QToolButton* minus_ = nullptr;
    QCheckBox* showsMenuBarIcon_ = nullptr;
    QCheckBox* opensAtLogin_ = nullptr;
    QPointer<QMessageBox> alert_;

    OncePerTurn refreshOnce_;
    Subscription modelChanges_;
    Subscription alertChanges_;
    Subscription loginItemChanges_;
    Subscription catalogChanges_;
    Subscription lookAgain_;
};

} // namespace dwellkey
