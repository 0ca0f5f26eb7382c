// SPDX-License-Identifier: MIT
// Which of a text's translations the user wants. std only.
#pragma once

#include "platform/linux/environment.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dwellkey {

/// The locales of the user's messages in the form of a Key[locale] suffix, best first; each
/// brings its less specific forms: sr_RS@latin, sr_RS, sr@latin, sr.
class LocaleNames {
public:
    /// No locale at all: untranslated texts.
    LocaleNames() = default;

    /// From full names ("de_AT.UTF-8@euro"), best first. An encoding is ignored.
    explicit LocaleNames(const std::vector<std::string>& names);

    /// What LC_ALL, LC_MESSAGES, LANG and LANGUAGE say, each where those before it are silent;
    /// LANGUAGE counts only when the locale is not "C".
    static LocaleNames from(const Environment& environment);

    /// 0 for the best match, higher for a worse one; absent when the user does not want it.
    [[nodiscard]] std::optional<std::size_t> rank(std::string_view locale) const;

private:
    std::vector<std::string> suffixes_;
};

} // namespace dwellkey
