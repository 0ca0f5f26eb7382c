// SPDX-License-Identifier: MIT
#include "views/preferences/preferences_navigation.h"

namespace dwellkey {

PreferencesNavigation& PreferencesNavigation::shared() {
    static auto* const instance = new PreferencesNavigation; // NOLINT: never destroyed
    return *instance;
}

} // namespace dwellkey
