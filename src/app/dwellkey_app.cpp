// SPDX-License-Identifier: MIT
#include "app/dwellkey_app.h"

#include "app/termination.h"

#include <QKeySequence>
#include <QShortcut>
#include <cstdlib>

namespace dwellkey {
namespace {
constexpr int statusLost = 1;
} // namespace

DwellkeyApp::DwellkeyApp(Backend& backend)
    : backend_(backend), appDelegate_(backend.platform()), timerManager_(TimerManager::shared()),
      outsideRequests_(backend.platform().runLoop, timerManager_),
      reopen_(outsideRequests_.guarded([this] {
          appDelegate_.shouldHandleReopen(false);
          backend_.platform().workspace.activateOurselves();
      })),
      menuBar_(backend.platform(), PreferencesViewModel::shared(), outsideRequests_,
               [this] { backend_.quit(0); }),
      followTimerViewOnce_(backend.platform().runLoop, [this] { followTimerView(); }),
      timerViewChanges_(timerManager_.isTimerViewVisible.willChange.subscribe(
          [this](bool) { followTimerViewOnce_.schedule(); })),
      timerViewSteps_(timerManager_.isTimerViewAside.willChange.subscribe(
          [this](bool) { followTimerViewOnce_.schedule(); })),
      terminationRequested_(backend.terminationRequested.subscribe([this] {
          untilRelease_ = onRelease(backend_.platform(), [this] { backend_.quit(0); });
      })),
      lost_(backend.lost.subscribe([this](std::string_view cause) { desktopIsGone(cause); })),
      suddenExit_(onSuddenExit([this] { desktopIsGone("the toolkit lost the X server"); })),
      termination_(onTerminationSignal(backend.platform().runLoop, [this] { backend_.quit(0); })) {
    declareWindows();
}

DwellkeyApp::~DwellkeyApp() = default;

int DwellkeyApp::run() {
    backend_.platform().runLoop.post([this] {
        menuBar_.appear();
        appDelegate_.didFinishLaunching();
        timerView().prepare(); // so that the first hold shows as fast as all others
        didFinishLaunching.emit();
    });
    const int status = backend_.run();
    menuBar_.disappear();
    appDelegate_.willTerminate();
    return status;
}

void DwellkeyApp::desktopIsGone(std::string_view cause) {
    suddenExit_.cancel();
    backend_.platform().errorLog.error("Dwellkey ends: the desktop is gone.", cause);
    appDelegate_.willTerminate();
    // Not the ordinary way out: everything that talks to the display is dead.
    std::_Exit(statusLost);
}

void DwellkeyApp::declareWindows() {
    QtWindowHost& host = backend_.windowHost();
    host.declare("IntroView", [this] { openLazily(introView_, KeyboardShortcutsModel::shared()); });
    host.declare("AboutView", [this] { openLazily(aboutView_); });
    host.declare("PreferencesView", [this] { preferencesView().open(); });
    host.declare("TimerView", [this] { timerView().open(); });
}

template <typename Window, typename... Models>
void DwellkeyApp::openLazily(std::unique_ptr<Window>& window, Models&... models) {
    if (!window) {
        window = std::make_unique<Window>(models..., backend_.platform());
        // While one of our windows is in front; the preferences need it only where they are not.
        auto* preferences = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma), window.get());
        QObject::connect(preferences, &QShortcut::activated, window.get(),
                         [this] { backend_.windowHost().open("PreferencesView"); });
    }
    window->open();
}

TimerView& DwellkeyApp::timerView() {
    if (!timerView_) {
        Platform& platform = backend_.platform();
        timerView_ =
            std::make_unique<TimerView>(timerManager_, platform.runLoop, platform.panelSupport);
    }
    return *timerView_;
}

PreferencesView& DwellkeyApp::preferencesView() {
    if (!preferencesView_) {
        preferencesView_ = std::make_unique<PreferencesView>(
            PreferencesView::Models{PreferencesViewModel::shared(),
                                    KeyboardShortcutsModel::shared(), AlertManager::shared(),
                                    PreferencesNavigation::shared()},
            backend_.platform());
    }
    return *preferencesView_;
}

/// Opens the panel when it came to be wanted. Leaving is the panel's own affair.
void DwellkeyApp::followTimerView() {
    const bool isWanted = timerManager_.isPanelWanted();
    if (isWanted && !wasTimerViewWanted_) {
        backend_.platform().windowHost.open("TimerView");
    }
    wasTimerViewWanted_ = isWanted;
}

} // namespace dwellkey
