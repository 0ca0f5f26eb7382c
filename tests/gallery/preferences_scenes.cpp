// SPDX-License-Identifier: MIT
#include "preferences_scenes.h"

#include "desktop.h"
#include "keycommands/recorder/key_recorder_segmented_control.h"
#include "views/preferences/application_picker.h"
#include "views/preferences/preferences_view.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QPointer>

namespace dwellkey {
namespace {

PreferencesView::Models models() {
    Desktop& desktop = Desktop::shared();
    return {desktop.preferences, desktop.shortcuts, desktop.alertManager,
            PreferencesNavigation::shared()};
}

/// The window after `prepare` did something to it.
void preferences(const std::function<void(PreferencesView&)>& prepare, const Look& look) {
    Desktop& desktop = Desktop::shared();
    PreferencesView window(models(), desktop.fake.platform());
    window.open();
    desktop.turn();
    prepare(window);
    desktop.show(window, look);
}

QAbstractButton& firstRecorder(QWidget& window) {
    return window.findChild<KeyRecorderSegmentedControl*>()->segment(RecorderSegment::shortcut);
}

void recording(const Look& look) {
    preferences([](PreferencesView& window) { firstRecorder(window).click(); }, look);
}

/// Another program grabbed the quit shortcut before us.
void taken(const Look& look) {
    Desktop& desktop = Desktop::shared();
    const KeyCommand& command = desktop.shortcuts.quitApplicationCommand;
    const auto combination = desktop.fake.hotKeys.registeredCombinations().front();
    command.disable();
    desktop.fake.hotKeys.takeByOther(combination);
    command.enable();
    preferences([](PreferencesView&) {}, look);
    desktop.fake.hotKeys.giveBackByOther(combination);
    command.enable();
}

void loginItemAlert(const Look& look) {
    Desktop& desktop = Desktop::shared();
    desktop.fake.loginItem.registerError = LoginItem::Error{"Permission denied"};
    preferences(
        [&](PreferencesView& window) {
            desktop.preferences.setStartOnLogin(true);
            desktop.turn();
            QWidget* alert = window.findChild<QMessageBox*>();
            look(*alert);
            alert->close();
        },
        [](QWidget&) {});
    desktop.fake.loginItem.registerError.reset();
}

void picker(const Look& look) {
    Desktop& desktop = Desktop::shared();
    const QPointer<ApplicationPicker> window =
        new ApplicationPicker(desktop.fake.platform(), nullptr); // deletes itself when closed
    window->show();
    desktop.turn();
    look(*window);
    window->close();
    delete window;
}

} // namespace

std::vector<Scene> preferencesScenes() {
    return {{"preferences", [](const Look& look) { preferences([](PreferencesView&) {}, look); }},
            {"preferences-recording", recording},
            {"preferences-shortcut-taken", taken},
            {"alert-login-item", loginItemAlert},
            {"application-picker", picker}};
}

} // namespace dwellkey
