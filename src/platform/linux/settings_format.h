// SPDX-License-Identifier: MIT
// The settings as their file spells them: a flat JSON object. std only.
#pragma once

#include "platform/user_defaults.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace dwellkey {

/// One entry of the file.
struct Setting {
    std::string json;                   ///< compact; equal values have equal texts
    std::optional<DefaultsValue> value; ///< absent when no alternative can hold it
    bool operator==(const Setting&) const = default;
};

/// Entries that this version has no use for are kept beside the others, so they survive a save.
using SettingsDocument = std::map<std::string, Setting, std::less<>>;

struct SettingsProblem {
    std::string cause; ///< for the log
};

/// Objects and arrays within each other, the outermost included.
inline constexpr int deepestSettingsNesting = 64;

/// How values are spelled:
///   bool, string, array of strings    the JSON value
///   std::int64_t                      a number without fraction and exponent
///   double                            any other number, or a whole one beyond 64 bits
///   Data                              {"$data": "the bytes as text"}, or {"$data64": "Base64"}
///                                     when the bytes are not UTF-8
/// A string that is not UTF-8, in an array too, is {"$text64": "Base64"}.
///
/// A text that is no JSON object, nests too deeply, or names a key twice is a problem: which of
/// two values was meant cannot be known.
std::variant<SettingsDocument, SettingsProblem> parseSettings(std::string_view text);

/// Indented for people to read, with the keys in their order.
std::string serializeSettings(const SettingsDocument& settings);

/// Absent for what JSON has no number for: infinities and "not a number".
std::optional<Setting> makeSetting(DefaultsValue value);

} // namespace dwellkey
