// SPDX-License-Identifier: MIT
// What the views say about the product. std only.
#pragma once

#include "platform/bundle_reader.h"

#include <string>

namespace dwellkey {

/// The short version string that this reader knows us by, or "Unknown".
std::string readAppVersion(const BundleReader& bundleReader);

/// `readAppVersion` of the shared platform at the first call; the same ever after.
const std::string& appVersion();

/// The year of the user's calendar at the first call; the same ever after.
int copyrightYear();

/// The desktop's own font, default weight, at a size in points.
struct SystemFont {
    int pointSize = 0;
};
inline constexpr SystemFont regularFont{12};
inline constexpr SystemFont smallFont{10};

} // namespace dwellkey
