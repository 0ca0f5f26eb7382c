// SPDX-License-Identifier: MIT
// The line format that desktop entries, mimeapps.list and .flatpak-info share. std only.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dwellkey {

/// One meaningful line. The views point into the text that is being read.
struct KeyFileLine {
    enum class Kind { groupHeader, pair, malformed };

    Kind kind = Kind::malformed;
    std::string_view group;  ///< the group that this line opens or belongs to; "" before the first
    std::string_view key;    ///< without the locale
    std::string_view locale; ///< of Key[locale]=; "" without one
    std::string_view value;  ///< still escaped; for a malformed line, the line
    std::size_t number = 0;  ///< counted from 1
};

/// Reads a text line by line, so that a caller stops as soon as it has what it wants.
class KeyFileReader {
public:
    /// The text must outlive the reader and its lines. A byte-order mark is passed over.
    explicit KeyFileReader(std::string_view text);

    /// The next line that is neither blank nor a comment; absent at the end.
    std::optional<KeyFileLine> next();

private:
    KeyFileLine parsed(std::string_view line);

    std::string_view rest_;
    std::string_view group_;
    std::size_t number_ = 0;
};

/// A value of type string: \s \n \t \r \\ are resolved, any other backslash is kept as it stands.
std::string unescapedValue(std::string_view value);

/// A value of type string list: divided at ';' (but not at "\;"), empty elements dropped.
std::vector<std::string> listValue(std::string_view value);

} // namespace dwellkey
