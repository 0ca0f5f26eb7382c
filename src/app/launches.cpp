// SPDX-License-Identifier: MIT
#include "app/launches.h"

#include <utility>

namespace dwellkey {

Launches::Launches(Backend& backend, DwellkeyApp& application, Launch own, SingleInstance* instance)
    : backend_(backend), application_(application), own_(std::move(own)), instance_(instance),
      launched_(busObject_.launched.subscribe(
          [this](const Launch& launch) { backend_.endStartupNotification(launch.startupId); })),
      startedAgainOverBus_(busObject_.startedAgain.subscribe(
          [this](const Launch& launch) { startedAgain(launch); })),
      didFinishLaunching_(application.didFinishLaunching.subscribe([this] { begin(); })) {
    if (instance_ != nullptr) {
        startedAgainOverSocket_ = instance_->socket().startedAgain.subscribe(
            [this](const Launch& launch) { startedAgain(launch); });
    }
}

/// The shortcuts are live by now: nothing of this delays them.
void Launches::begin() {
    backend_.endStartupNotification(own_.startupId);
    busObject_.publish();
    if (instance_ != nullptr) {
        instance_->socket().attach(backend_.platform().runLoop);
        if (instance_->tookOver()) {
            application_.reopen(); // the user wanted something of the one that hung
        }
    }
}

void Launches::startedAgain(const Launch& launch) {
    application_.reopen();
    backend_.endStartupNotification(launch.startupId);
}

} // namespace dwellkey
