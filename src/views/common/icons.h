// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image.h"

#include <QIcon>

namespace dwellkey {

/// Our own icon, which is part of the program.
inline constexpr const char* applicationIconName = "DwellkeyIcon";

/// The picture from the desktop's icon theme or from its file, loaded when it is first drawn. An
/// image that leads nowhere gives the generic picture of a program.
QIcon loadIcon(const Image& image);

} // namespace dwellkey
