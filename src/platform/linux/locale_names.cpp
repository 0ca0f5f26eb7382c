// SPDX-License-Identifier: MIT
#include "platform/linux/locale_names.h"

#include <algorithm>

namespace dwellkey {
namespace {

struct LocaleParts {
    std::string language;
    std::string country;  ///< with its '_', or empty
    std::string modifier; ///< with its '@', or empty
};

/// lang[_COUNTRY][.ENCODING][@MODIFIER]
LocaleParts divided(std::string_view name) {
    LocaleParts parts;
    if (const std::size_t at = name.find('@'); at != std::string_view::npos) {
        parts.modifier = name.substr(at);
        name = name.substr(0, at);
    }
    name = name.substr(0, name.find('.'));
    if (const std::size_t underscore = name.find('_'); underscore != std::string_view::npos) {
        parts.country = name.substr(underscore);
        name = name.substr(0, underscore);
    }
    parts.language = name;
    return parts;
}

/// Most specific first; none for a name without a language.
std::vector<std::string> suffixesOf(std::string_view name) {
    const auto [language, country, modifier] = divided(name);
    if (language.empty()) {
        return {};
    }
    return {language + country + modifier, language + country, language + modifier, language};
}

/// The suffix under which files spell this locale, without the encoding.
std::string canonical(std::string_view name) {
    const LocaleParts parts = divided(name);
    return parts.language + parts.country + parts.modifier;
}

bool isUntranslated(std::string_view name) {
    const std::string language = divided(name).language;
    return language == "C" || language == "POSIX";
}

} // namespace

LocaleNames::LocaleNames(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        for (std::string& suffix : suffixesOf(name)) {
            if (std::ranges::find(suffixes_, suffix) == suffixes_.end()) {
                suffixes_.push_back(std::move(suffix));
            }
        }
    }
}

LocaleNames LocaleNames::from(const Environment& environment) {
    std::string locale;
    for (const std::string_view variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        locale = environment(variable).value_or("");
        if (!locale.empty()) {
            break;
        }
    }
    if (locale.empty() || isUntranslated(locale)) {
        return {};
    }
    std::vector<std::string> names = splitList(environment("LANGUAGE").value_or(""), ':');
    names.push_back(std::move(locale));
    // Untranslated texts are in English here: what comes after "C" in the list is never reached.
    names.erase(std::ranges::find_if(names, isUntranslated), names.end());
    return LocaleNames(names);
}

std::optional<std::size_t> LocaleNames::rank(std::string_view locale) const {
    if (suffixes_.empty()) {
        return std::nullopt; // the common case in a "C" session, asked for every translation
    }
    const auto found = std::ranges::find(suffixes_, canonical(locale));
    if (found == suffixes_.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - suffixes_.begin());
}

} // namespace dwellkey
