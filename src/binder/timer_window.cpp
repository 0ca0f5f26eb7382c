// SPDX-License-Identifier: MIT
#include "binder/timer_window.h"

#include "binder/fatal_error.h"

namespace dwellkey {
namespace {
InterfaceFiles* installed = nullptr;
} // namespace

InterfaceFiles& InterfaceFiles::shared() {
    if (installed == nullptr) {
        fatalError("This program loads no interface files.");
    }
    return *installed;
}

void InterfaceFiles::install(InterfaceFiles* files) {
    installed = files;
}

} // namespace dwellkey
