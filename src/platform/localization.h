// SPDX-License-Identifier: MIT
// What the models say to the user, in the user's language. std only.
#pragma once

#include <string>
#include <string_view>

namespace dwellkey {

class Localizer {
public:
    Localizer() = default;
    Localizer(const Localizer&) = delete;
    Localizer& operator=(const Localizer&) = delete;
    virtual ~Localizer() = default;

    /// The text in the user's language, or as it is where there is no translation. `context` names
    /// who says it, for the translators. The text must be a literal: the translation files are made
    /// from the calls.
    [[nodiscard]] virtual std::string localized(const char* context, const char* text) const = 0;
};

/// `text` with the first `place` in it replaced. A text without one is returned as it is.
inline std::string withArgument(std::string text, std::string_view argument,
                                std::string_view place = "%1") {
    if (const auto at = text.find(place); at != std::string::npos) {
        text.replace(at, place.size(), argument);
    }
    return text;
}

} // namespace dwellkey
