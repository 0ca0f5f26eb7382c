// SPDX-License-Identifier: MIT
#pragma once

#include "support/observable_object.h"

namespace dwellkey {

/// There is one page, shown directly; a second one would bring the tabs.
enum class PreferencesTab { preferences };

class PreferencesNavigation : public ObservableObject {
public:
    /// The process's instance, made on first use and never destroyed.
    static PreferencesNavigation& shared();

    PreferencesNavigation() = default;

    Published<PreferencesTab> selectedTab{*this, PreferencesTab::preferences};
};

} // namespace dwellkey
