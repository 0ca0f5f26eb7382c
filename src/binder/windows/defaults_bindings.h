// SPDX-License-Identifier: MIT
// Controls of an interface file that show and change a setting by themselves.
#pragma once

#include "platform/user_defaults.h"
#include "support/signal.h"

#include <string_view>
#include <vector>

class QWidget;

namespace dwellkey {

/// Binds every widget below `root` that has the property "defaultsKey" to that key, both ways:
///
/// - an ArrayController: its content, a list of texts
/// - a combo box: the index of its choice; no choice for a value that has none
/// - a spin box of fractions: the number, or, with the property "minuend", what is left of that
///   after the number is subtracted. One outside its range is shown and cannot be chosen; one below
///   zero is "Never"
///
/// Any other widget with the property is a mistake in the file and ends the process. `fileName` is
/// for its message. The store must outlive the widgets.
std::vector<Subscription> bindToDefaults(QWidget& root, UserDefaults& userDefaults,
                                         std::string_view fileName);

} // namespace dwellkey
