// SPDX-License-Identifier: MIT
#include "app/backend.h"
#include "app/binder_app.h"
#include "app/single_start.h"
#include "app/termination.h"
#include "platform/linux/environment.h"
#include "platform/linux/linux_error_log.h"
#include "platform/platform.h"

#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <variant>

namespace dwellkey {
namespace {

int run(int argc, char** argv, ErrorLog& errorLog, Launch launch, SingleInstance* instance) {
    auto started = startBackend(argc, argv, errorLog);
    if (const auto* reason = std::get_if<std::string>(&started)) {
        errorLog.error("Dwellkey cannot start.", *reason);
        return EXIT_FAILURE;
    }
    Backend& backend = *std::get<std::unique_ptr<Backend>>(started);
    Platform::install(backend.platform());
    return BinderApp(backend, std::move(launch), instance).run();
}

int start(int argc, char** argv) {
    LinuxErrorLog errorLog;
    const Environment environment = processEnvironment();
    Launch launch = Launch::from(environment);
    // Another program than `dwellkey`, which may hold its own place on this display.
    auto place = SingleInstance::Place::from(environment);
    place.display = "binder" + place.display;
    const SingleStart claim = claimDisplay(place, launch, errorLog);
    if (const auto* status = std::get_if<int>(&claim)) {
        return *status;
    }
    auto* instance = std::get<std::unique_ptr<SingleInstance>>(claim).get();
    return run(argc, argv, errorLog, std::move(launch), instance);
}

} // namespace
} // namespace dwellkey

int main(int argc, char** argv) {
    dwellkey::catchTerminationSignals();
    return dwellkey::start(argc, argv);
}
