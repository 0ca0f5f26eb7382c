// SPDX-License-Identifier: MIT
#include "app/backend.h"
#include "app/binder_app.h"
#include "app/termination.h"
#include "platform/linux/linux_error_log.h"
#include "platform/platform.h"

#include <cstdlib>
#include <memory>
#include <string>
#include <variant>

int main(int argc, char** argv) {
    using namespace dwellkey;
    catchTerminationSignals();
    LinuxErrorLog errorLog;
    auto started = startBackend(argc, argv, errorLog);
    if (const auto* reason = std::get_if<std::string>(&started)) {
        errorLog.error("Dwellkey cannot start.", *reason);
        return EXIT_FAILURE;
    }
    Backend& backend = *std::get<std::unique_ptr<Backend>>(started);
    Platform::install(backend.platform());
    return BinderApp(backend).run();
}
