// SPDX-License-Identifier: MIT
#include "support/url.h"

#include <algorithm>
#include <cctype>
#include <cstddef>

namespace dwellkey {
namespace {

bool isAlpha(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isSchemeCharacter(char c) {
    return isAlpha(c) || isDigit(c) || c == '+' || c == '-' || c == '.';
}

bool isUnreservedInPath(char c) {
    return isAlpha(c) || isDigit(c)
           || std::string_view("-._~/!$&'()*+,;=:@").find(c) != std::string_view::npos;
}

int hexValue(char c) {
    if (isDigit(c)) {
        return c - '0';
    }
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

bool isEscape(std::string_view text, std::size_t at) {
    return at + 2 < text.size() && hexValue(text[at + 1]) >= 0 && hexValue(text[at + 2]) >= 0;
}

std::string unescaped(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && isEscape(text, i)) {
            result += static_cast<char>(hexValue(text[i + 1]) * 16 + hexValue(text[i + 2]));
            i += 2;
        } else {
            result += text[i];
        }
    }
    return result;
}

std::string_view schemeOf(std::string_view text) {
    return text.substr(0, text.find(':'));
}

/// Past the scheme and, where there is one, the authority, without query and fragment.
std::string_view escapedPath(std::string_view text) {
    text.remove_prefix(schemeOf(text).size() + 1);
    if (text.starts_with("//")) {
        text.remove_prefix(2);
        text.remove_prefix(std::min(text.find_first_of("/?#"), text.size()));
    }
    return text.substr(0, text.find_first_of("?#"));
}

} // namespace

std::optional<Url> Url::parse(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos || colon == 0 || !isAlpha(text.front())) {
        return std::nullopt;
    }
    if (!std::ranges::all_of(text.substr(0, colon), isSchemeCharacter)) {
        return std::nullopt;
    }
    for (std::size_t i = colon; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte <= 0x20 || byte == 0x7f || (text[i] == '%' && !isEscape(text, i))) {
            return std::nullopt;
        }
    }
    return Url(std::string(text));
}

Url Url::fromPath(std::string_view absolutePath) {
    static constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text = "file://";
    for (const char c : absolutePath) {
        if (isUnreservedInPath(c)) {
            text += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            text += {'%', digits[byte >> 4U], digits[byte & 0xfU]};
        }
    }
    return Url(std::move(text));
}

std::string Url::path() const {
    return unescaped(escapedPath(text_));
}

std::string Url::lastPathComponent() const {
    std::string_view path = escapedPath(text_);
    while (path.ends_with('/')) {
        path.remove_suffix(1);
    }
    const std::size_t slash = path.rfind('/');
    return unescaped(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

bool Url::isFile() const {
    std::string scheme(schemeOf(text_));
    std::ranges::transform(scheme, scheme.begin(), [](unsigned char c) { return std::tolower(c); });
    if (scheme != "file") {
        return false;
    }
    const std::string_view rest = std::string_view(text_).substr(scheme.size() + 1);
    return !rest.starts_with("//") || rest.starts_with("///") || rest.starts_with("//localhost/");
}

} // namespace dwellkey
