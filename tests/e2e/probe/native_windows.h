// SPDX-License-Identifier: MIT
// What a window tells the window manager, set past the toolkit.
#pragma once

#include "options.h"

#include <QWidget>

namespace dwellkey::probe {

/// Before the window is first shown.
void applyNativeProperties(QWidget& window, const Options& options);

/// The name of the atom.
[[nodiscard]] QString atomName(quint32 value);

} // namespace dwellkey::probe
