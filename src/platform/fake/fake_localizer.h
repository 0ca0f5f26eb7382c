// SPDX-License-Identifier: MIT
// A language in which every text is itself, but for those that a test gives another. std only.
#pragma once

#include "platform/localization.h"

#include <functional>
#include <map>
#include <string>

namespace dwellkey {

class FakeLocalizer final : public Localizer {
public:
    [[nodiscard]] std::string localized(const char* context, const char* text) const override {
        if (translate) {
            return translate(context, text);
        }
        const auto translation = translations.find(text);
        return translation == translations.end() ? text : translation->second;
    }

    std::map<std::string, std::string, std::less<>> translations;
    /// Stands in for the map when it is set.
    std::function<std::string(const char* context, const char* text)> translate;
};

} // namespace dwellkey
