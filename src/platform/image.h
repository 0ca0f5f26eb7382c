// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace dwellkey {

/// Names a picture without holding its pixels: an icon-theme name or an absolute file path. The
/// views load it in the size that they need. Two images are equal when they name the same.
struct Image {
    std::string name;
    bool operator==(const Image&) const = default;
};

} // namespace dwellkey
