// SPDX-License-Identifier: MIT
#include "platform/qt/qt_window_host.h"

#include <utility>

namespace dwellkey {

void QtWindowHost::declare(std::string identifier, std::function<void()> openOrBringForward) {
    windows_.insert_or_assign(std::move(identifier), std::move(openOrBringForward));
}

void QtWindowHost::open(std::string_view identifier) {
    const auto window = windows_.find(identifier);
    if (window == windows_.end()) {
        errorLog_.error("The window \"" + std::string(identifier) + "\" could not be opened.",
                        "no window is declared under this identifier");
        return;
    }
    window->second();
}

} // namespace dwellkey
