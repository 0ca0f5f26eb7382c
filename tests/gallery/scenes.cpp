// SPDX-License-Identifier: MIT
#include "scenes.h"

#include "hold/panel/timer_view.h"
#include "hold/timer_manager.h"
#include "platform/fake/fake_platform.h"
#include "platform/qt/qt_alerts.h"
#include "platform/qt/qt_localizer.h"
#include "settings/preferences_view_model.h"
#include "views/about/about_view.h"
#include "views/about/intro_view.h"

#include <QApplication>
#include <QTimer>

namespace dwellkey {
namespace {

/// A desktop with some applications, in the user's language.
class Desktop {
public:
    Desktop() {
        fake.localizer.translate = [this](const char* context, const char* text) {
            return localizer.localized(context, text);
        };
        fake.bundleReader.infoStrings["CFBundleShortVersionString"] = "0.1.0";
        fake.workspace.launchInFront("org.gnome.TextEditor", "Text Editor");
        Platform::install(fake.platform());
    }

    /// Lets the views take up what changed in the models.
    void turn() {
        fake.runLoop.runPosted();
        QApplication::processEvents();
    }

    QtLocalizer localizer;
    FakePlatform fake;
    AlertManager alertManager;
    PreferencesViewModel preferences{fake.platform(), alertManager};
};

/// Installed as the shared platform, so it stays.
Desktop& desktop() {
    static auto* const instance = new Desktop;
    return *instance;
}

template <typename Window>
void show(Window& window, const Look& look) {
    window.open();
    desktop().turn();
    look(window);
    window.hide();
}

void holdPanel(CloseMethod method, double progress, const Look& look) {
    FakePlatform& fake = desktop().fake;
    fake.panelSupport.composited = true;
    TimerManager timer(fake.platform(), desktop().preferences);
    TimerView view(timer, fake.runLoop, fake.panelSupport);
    timer.startTimer(method);
    timer.progress = progress;
    show(view, look);
    timer.stopHold();
}

/// The alert that `cause` brings up, drawn by the toolkit.
void alert(const std::function<void(TimerManager&)>& cause, const Look& look) {
    FakePlatform& fake = desktop().fake;
    fake.alerts.responses.push_back(alertFirstButtonReturn + 1);
    TimerManager timer(fake.platform(), desktop().preferences);
    cause(timer);
    QTimer::singleShot(0, [&look] {
        QWidget* box = QApplication::activeModalWidget();
        look(*box);
        box->close();
    });
    QtAlerts().runModal(fake.alerts.shown.back());
}

void permissionAlert(const Look& look) {
    alert(
        [](TimerManager& timer) {
            desktop().fake.accessibilityTrust.trusted = false;
            timer.closeFrontWindow();
            desktop().fake.accessibilityTrust.trusted = true;
        },
        look);
}

} // namespace

std::vector<Scene> scenes() {
    return {
        {"introduction",
         [](const Look& look) {
             IntroView window(desktop().fake.platform());
             show(window, look);
         }},
        {"about",
         [](const Look& look) {
             AboutView window(desktop().fake.platform());
             show(window, look);
         }},
        {"hold-quit", [](const Look& look) { holdPanel(CloseMethod::quitApp, 0.6, look); }},
        {"hold-close", [](const Look& look) { holdPanel(CloseMethod::closeWindow, 0.25, look); }},
        {"alert-permission", permissionAlert},
        {"alert-close-failed",
         [](const Look& look) {
             alert([](TimerManager& timer) { timer.closeFrontWindow(); }, look);
         }},
    };
}

} // namespace dwellkey
