// SPDX-License-Identifier: MIT
#include "platform/linux/text_encoding.h"

#include <algorithm>
#include <cstdint>

namespace dwellkey {
namespace {

constexpr std::string_view alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::uint32_t byteAt(std::string_view bytes, std::size_t index) {
    return static_cast<unsigned char>(bytes[index]);
}

void appendUtf8(std::string& text, std::uint32_t codePoint) {
    const auto append = [&text](std::uint32_t byte) { text += static_cast<char>(byte); };
    if (codePoint < 0x80) {
        append(codePoint);
    } else if (codePoint < 0x800) {
        append(0xC0 | (codePoint >> 6));
        append(0x80 | (codePoint & 0x3F));
    } else if (codePoint < 0x10000) {
        append(0xE0 | (codePoint >> 12));
        append(0x80 | ((codePoint >> 6) & 0x3F));
        append(0x80 | (codePoint & 0x3F));
    } else {
        append(0xF0 | (codePoint >> 18));
        append(0x80 | ((codePoint >> 12) & 0x3F));
        append(0x80 | ((codePoint >> 6) & 0x3F));
        append(0x80 | (codePoint & 0x3F));
    }
}

enum class ByteOrder { littleEndian, bigEndian };

std::optional<std::string> decodeUtf16(std::string_view bytes, ByteOrder order) {
    if (bytes.size() % 2 != 0) {
        return std::nullopt;
    }
    const auto unitAt = [&](std::size_t index) {
        const std::uint32_t first = byteAt(bytes, index);
        const std::uint32_t second = byteAt(bytes, index + 1);
        return order == ByteOrder::bigEndian ? (first << 8) | second : (second << 8) | first;
    };
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        std::uint32_t codePoint = unitAt(i);
        if (codePoint >= 0xD800 && codePoint < 0xE000) {
            if (codePoint >= 0xDC00 || i + 2 >= bytes.size()) {
                return std::nullopt;
            }
            i += 2;
            const std::uint32_t low = unitAt(i);
            if (low < 0xDC00 || low >= 0xE000) {
                return std::nullopt;
            }
            codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (low - 0xDC00);
        }
        appendUtf8(text, codePoint);
    }
    return text;
}

} // namespace

std::size_t utf8SequenceLength(std::string_view bytes) {
    if (bytes.empty()) {
        return 0;
    }
    const std::uint32_t first = byteAt(bytes, 0);
    if (first < 0x80) {
        return 1;
    }
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || bytes.size() < length) {
        return 0;
    }
    // The second byte alone tells overlong forms, surrogates and too large values apart.
    const std::uint32_t second = byteAt(bytes, 1);
    const std::uint32_t lowest = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
    const std::uint32_t highest = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
    if (second < lowest || second > highest) {
        return 0;
    }
    for (std::size_t i = 2; i < length; ++i) {
        if ((byteAt(bytes, i) & 0xC0) != 0x80) {
            return 0;
        }
    }
    return length;
}

bool isUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t length = utf8SequenceLength(bytes);
        if (length == 0) {
            return false;
        }
        bytes.remove_prefix(length);
    }
    return true;
}

std::optional<std::string> decodeText(std::string_view bytes) {
    using namespace std::string_view_literals;
    if (bytes.starts_with("\xFF\xFE"sv)) {
        return decodeUtf16(bytes.substr(2), ByteOrder::littleEndian);
    }
    if (bytes.starts_with("\xFE\xFF"sv)) {
        return decodeUtf16(bytes.substr(2), ByteOrder::bigEndian);
    }
    if (bytes.starts_with("\xEF\xBB\xBF"sv)) {
        bytes.remove_prefix(3);
    }
    return isUtf8(bytes) ? std::optional<std::string>(bytes) : std::nullopt;
}

std::string encodeBase64(std::string_view bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < 3; ++k) {
            group = (group << 8) | (k < count ? byteAt(bytes, i + k) : 0);
        }
        for (std::size_t k = 0; k < 4; ++k) {
            text += k <= count ? alphabet[(group >> (18 - 6 * k)) & 0x3F] : '=';
        }
    }
    return text;
}

std::optional<std::string> decodeBase64(std::string_view text) {
    std::string bytes;
    std::uint32_t group = 0;
    int bits = 0;
    for (const char letter : text.substr(0, text.find('='))) {
        const auto digit = alphabet.find(letter);
        if (digit == std::string_view::npos) {
            return std::nullopt;
        }
        group = ((group << 6) | static_cast<std::uint32_t>(digit)) & 0xFFFFFF;
        bits += 6;
        if (bits >= 8) {
            bits -= 8;
            bytes += static_cast<char>((group >> bits) & 0xFF);
        }
    }
    // One form for each value: the padding and the bits left over must be as encoding leaves them.
    return encodeBase64(bytes) == text ? std::optional(bytes) : std::nullopt;
}

} // namespace dwellkey
