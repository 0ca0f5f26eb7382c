// SPDX-License-Identifier: MIT
#include "app/backend.h"
#include "app/dwellkey_app.h"
#include "app/launches.h"
#include "app/termination.h"
#include "platform/linux/environment.h"
#include "platform/linux/launch.h"
#include "platform/linux/linux_error_log.h"
#include "platform/linux/single_instance.h"
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
    DwellkeyApp application(backend);
    const Launches launches(backend, application, std::move(launch), instance);
    return application.run();
}

int start(int argc, char** argv) {
    LinuxErrorLog errorLog;
    const Environment environment = processEnvironment();
    Launch launch = Launch::from(environment);
    auto claim = SingleInstance::claim(SingleInstance::Place::from(environment), launch, {});
    if (std::holds_alternative<SingleInstance::Answered>(claim)) {
        return EXIT_SUCCESS;
    }
    if (const auto* blocked = std::get_if<SingleInstance::Blocked>(&claim)) {
        errorLog.error("Another Dwellkey does not answer and cannot be ended.", blocked->cause);
        return EXIT_FAILURE;
    }
    // Held until everything else is gone: the next Dwellkey finds the keys free.
    std::unique_ptr<SingleInstance> instance;
    if (const auto* unavailable = std::get_if<SingleInstance::Unavailable>(&claim)) {
        errorLog.error("Starting Dwellkey again will not find this one.", unavailable->cause);
    } else {
        instance = std::get<std::unique_ptr<SingleInstance>>(std::move(claim));
    }
    return run(argc, argv, errorLog, std::move(launch), instance.get());
}

} // namespace
} // namespace dwellkey

int main(int argc, char** argv) {
    dwellkey::catchTerminationSignals();
    return dwellkey::start(argc, argv);
}
