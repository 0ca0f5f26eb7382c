// SPDX-License-Identifier: MIT
#include "app/binder_app.h"

#include "app/termination.h"
#include "binder/fatal_error.h"
#include "binder/handler.h"

#include <cstdlib>
#include <utility>

namespace dwellkey {
namespace {
constexpr int statusLost = 1;
} // namespace

BinderApp::BinderApp(Backend& backend, Launch own, SingleInstance* instance)
    : backend_(backend), own_(std::move(own)), instance_(instance),
      loader_(backend.platform().bundleReader, backend.platform().errorLog),
      interfaceFiles_(backend.platform().panelSupport),
      shortcutBinder_(backend.platform().hotKeys, backend.platform().userDefaults,
                      backend.platform().errorLog),
      preferences_(backend.platform()),
      terminationRequested_(backend.terminationRequested.subscribe([this] {
          untilRelease_ = onRelease(backend_.platform(), [this] { backend_.quit(0); });
      })),
      lost_(backend.lost.subscribe([this](std::string_view cause) {
          Platform& platform = backend_.platform();
          platform.errorLog.error("Dwellkey ends: the desktop is gone.", cause);
          platform.userDefaults.synchronize();
          // Not the ordinary way out: everything that talks to the display is dead.
          std::_Exit(statusLost);
      })),
      termination_(onTerminationSignal(backend.platform().runLoop, [this] { backend_.quit(0); })) {
    InterfaceLoader::install(&loader_);
    InterfaceFiles::install(&interfaceFiles_);
    ShortcutBinder::install(&shortcutBinder_);
    handler_ = binderClasses().make("Handler");
}

BinderApp::~BinderApp() {
    ShortcutBinder::install(nullptr);
    InterfaceFiles::install(nullptr);
    InterfaceLoader::install(nullptr);
}

int BinderApp::run() {
    Platform& platform = backend_.platform();
    platform.runLoop.post([this] { beginListening(); });
    const int status = backend_.run();
    platform.userDefaults.synchronize();
    return status;
}

void BinderApp::beginListening() {
    if (instance_ != nullptr) {
        startedAgain_ = instance_->socket().startedAgain.subscribe([this](const Launch& launch) {
            showPreferences(launch);
            backend_.platform().workspace.activateOurselves();
        });
        instance_->socket().attach(backend_.platform().runLoop);
    }
    showPreferences(own_);
}

void BinderApp::showPreferences(const Launch& launch) {
    preferences_.showWindow();
    backend_.endStartupNotification(launch.startupId);
}

} // namespace dwellkey
