// SPDX-License-Identifier: MIT
// The user's choice of applications for a type of file. std only.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dwellkey {

/// What one mimeapps.list says of one type: desktop-entry ids without ".desktop", best first.
struct MimeApplications {
    std::vector<std::string> defaults;
    std::vector<std::string> added;
    std::vector<std::string> removed;
};

/// A malformed line costs no more than itself: the user's other choices stay.
MimeApplications parseMimeApplications(std::string_view text, std::string_view mimeType);

} // namespace dwellkey
