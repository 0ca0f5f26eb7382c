// SPDX-License-Identifier: MIT
// Which bytes are text, and how bytes that are not travel in a text. std only.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace dwellkey {

/// The length of the UTF-8 sequence that `bytes` starts with; 0 when it starts with none (or is
/// empty). Overlong forms, surrogates and values beyond U+10FFFF are none.
std::size_t utf8SequenceLength(std::string_view bytes);

bool isUtf8(std::string_view bytes);

/// The content of a text file as UTF-8: UTF-16 by its byte-order mark, anything else must be
/// UTF-8; the mark is dropped. Absent when it is neither.
std::optional<std::string> decodeText(std::string_view bytes);

/// RFC 4648, with padding. Decoding accepts exactly what encoding produces.
std::string encodeBase64(std::string_view bytes);
std::optional<std::string> decodeBase64(std::string_view text);

} // namespace dwellkey
