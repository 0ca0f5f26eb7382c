// SPDX-License-Identifier: MIT
#pragma once

#include "app/state/product_constants.h"

#include <QFont>

namespace dwellkey {

/// The desktop's font at `size`, in device-independent pixels, so that our windows keep their
/// proportions whatever the desktop takes for the resolution of the screen.
QFont fontFor(SystemFont size, QFont::Weight weight = QFont::Normal);

} // namespace dwellkey
