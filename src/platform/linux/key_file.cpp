// SPDX-License-Identifier: MIT
#include "platform/linux/key_file.h"

#include <algorithm>
#include <utility>

namespace dwellkey {
namespace {

constexpr std::string_view blanks = " \t\r\f\v";

std::string_view trimmed(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

/// What a backslash and this character stand for; absent when the pair means nothing.
std::optional<char> escapeMeaning(char character) {
    switch (character) {
    case 's':
        return ' ';
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'r':
        return '\r';
    case '\\':
        return '\\';
    default:
        return std::nullopt;
    }
}

} // namespace

KeyFileReader::KeyFileReader(std::string_view text) : rest_(text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (rest_.starts_with(byteOrderMark)) {
        rest_.remove_prefix(byteOrderMark.size());
    }
}

std::optional<KeyFileLine> KeyFileReader::next() {
    while (!rest_.empty()) {
        const std::size_t end = std::min(rest_.find('\n'), rest_.size());
        const std::string_view line = trimmed(rest_.substr(0, end));
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        ++number_;
        if (!line.empty() && line.front() != '#') {
            return parsed(line);
        }
    }
    return std::nullopt;
}

KeyFileLine KeyFileReader::parsed(std::string_view line) {
    KeyFileLine result;
    result.group = group_;
    result.value = line;
    result.number = number_;
    if (line.front() == '[') {
        if (line.size() > 2 && line.find(']') == line.size() - 1) {
            group_ = line.substr(1, line.size() - 2);
            result.kind = KeyFileLine::Kind::groupHeader;
            result.group = group_;
        }
        return result;
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || equals == 0) {
        return result;
    }
    std::string_view key = trimmed(line.substr(0, equals));
    if (const std::size_t bracket = key.find('['); bracket != std::string_view::npos) {
        if (bracket == 0 || !key.ends_with(']')) {
            return result;
        }
        result.locale = key.substr(bracket + 1, key.size() - bracket - 2);
        key = key.substr(0, bracket);
    }
    result.kind = KeyFileLine::Kind::pair;
    result.key = key;
    result.value = trimmed(line.substr(equals + 1));
    return result;
}

std::string unescapedValue(std::string_view value) {
    std::string result;
    result.reserve(value.size());
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == '\\' && i + 1 < value.size()) {
            if (const auto meaning = escapeMeaning(value[i + 1])) {
                result += *meaning;
                ++i;
                continue;
            }
        }
        result += value[i];
    }
    return result;
}

std::vector<std::string> listValue(std::string_view value) {
    std::vector<std::string> result;
    std::string element;
    const auto finishElement = [&] {
        if (!element.empty()) {
            result.push_back(std::exchange(element, {}));
        }
    };
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == ';') {
            finishElement();
        } else if (value[i] == '\\' && i + 1 < value.size()) {
            const char escaped = value[++i];
            if (const auto meaning = escapeMeaning(escaped)) {
                element += *meaning;
            } else if (escaped == ';') {
                element += ';';
            } else {
                element += {'\\', escaped};
            }
        } else {
            element += value[i];
        }
    }
    finishElement();
    return result;
}

} // namespace dwellkey
