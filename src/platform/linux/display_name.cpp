// SPDX-License-Identifier: MIT
#include "platform/linux/display_name.h"

#include "platform/linux/text_encoding.h"

#include <algorithm>
#include <cstddef>

namespace dwellkey {
namespace {

constexpr std::size_t mostBytes = 256;
constexpr std::string_view replacement = "\xEF\xBF\xBD"; // U+FFFD

bool isControl(std::string_view character) {
    const auto first = static_cast<unsigned char>(character.front());
    if (character.size() == 1) {
        return first < 0x20 || first == 0x7F;
    }
    const bool isC1 = first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0;
    return isC1 || character == "\u2028" || character == "\u2029";
}

} // namespace

std::optional<std::string> displayName(std::string_view text) {
    std::string line;
    while (!text.empty()) {
        const std::size_t length = utf8SequenceLength(text);
        std::string_view shown = length == 0 ? replacement : text.substr(0, length);
        if (isControl(shown)) {
            shown = " ";
        }
        text.remove_prefix(std::max<std::size_t>(length, 1));
        if (line.empty() && shown == " ") {
            continue;
        }
        if (line.size() + shown.size() > mostBytes) {
            break;
        }
        line += shown;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line.empty() ? std::nullopt : std::optional(std::move(line));
}

} // namespace dwellkey
