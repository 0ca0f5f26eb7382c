// SPDX-License-Identifier: MIT
#include "scenes.h"

#include "binder_scenes.h"
#include "desktop.h"
#include "hold/panel/timer_view.h"
#include "platform/qt/qt_alerts.h"
#include "preferences_scenes.h"
#include "views/about/about_view.h"
#include "views/about/intro_view.h"

#include <QApplication>
#include <QTimer>

namespace dwellkey {
namespace {

void introduction(const Look& look) {
    IntroView window(Desktop::shared().shortcuts, Desktop::shared().fake.platform());
    Desktop::shared().show(window, look);
}

void introductionWithoutBar(const Look& look) {
    Desktop::shared().fake.menuBarExtra.setHosted(false);
    introduction(look);
    Desktop::shared().fake.menuBarExtra.setHosted(true);
}

void about(const Look& look) {
    AboutView window(Desktop::shared().fake.platform());
    Desktop::shared().show(window, look);
}

void holdPanel(CloseMethod method, double progress, const Look& look) {
    FakePlatform& fake = Desktop::shared().fake;
    fake.panelSupport.composited = true;
    TimerManager timer(fake.platform(), Desktop::shared().preferences);
    TimerView view(timer, fake.runLoop, fake.panelSupport);
    timer.startTimer(method);
    timer.progress = progress;
    Desktop::shared().show(view, look);
    timer.stopHold();
}

/// The alert that `cause` brings up, drawn by the toolkit.
void alert(const std::function<void(TimerManager&)>& cause, const Look& look) {
    FakePlatform& fake = Desktop::shared().fake;
    fake.alerts.responses.push_back(alertFirstButtonReturn + 1);
    TimerManager timer(fake.platform(), Desktop::shared().preferences);
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
            Desktop::shared().fake.accessibilityTrust.trusted = false;
            timer.closeFrontWindow();
            Desktop::shared().fake.accessibilityTrust.trusted = true;
        },
        look);
}

} // namespace

std::vector<Scene> scenes() {
    std::vector<Scene> all = preferencesScenes();
    all.insert(
        all.end(),
        {{"introduction", introduction},
         {"introduction-no-bar", introductionWithoutBar},
         {"about", about},
         {"hold-quit", [](const Look& look) { holdPanel(CloseMethod::quitApp, 0.6, look); }},
         {"hold-close", [](const Look& look) { holdPanel(CloseMethod::closeWindow, 0.25, look); }},
         {"alert-permission", permissionAlert},
         {"alert-close-failed", [](const Look& look) {
              alert([](TimerManager& timer) { timer.closeFrontWindow(); }, look);
          }}});
    const std::vector<Scene> binder = binderScenes(Desktop::shared().fake);
    all.insert(all.end(), binder.begin(), binder.end());
    return all;
}

} // namespace dwellkey
