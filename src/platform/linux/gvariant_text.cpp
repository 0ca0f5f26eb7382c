// SPDX-License-Identifier: MIT
#include "platform/linux/gvariant_text.h"

#include <cstddef>
#include <optional>
#include <utility>

namespace dwellkey {
namespace {

class Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) { skipBlanks(); }

    [[nodiscard]] bool isAtEnd() const { return rest_.empty(); }

    bool take(std::string_view token) {
        if (!rest_.starts_with(token)) {
            return false;
        }
        rest_.remove_prefix(token.size());
        skipBlanks();
        return true;
    }

    /// In either kind of quotes.
    std::optional<std::string> takeString() {
        if (!rest_.starts_with('\'') && !rest_.starts_with('"')) {
            return std::nullopt;
        }
        const char quote = takeCharacter();
        std::string result;
        while (!rest_.empty() && rest_.front() != quote) {
            const char character = takeCharacter();
            if (character != '\\') {
                result += character;
            } else if (!takeEscaped(result)) {
                return std::nullopt;
            }
        }
        return take({&quote, 1}) ? std::optional(std::move(result)) : std::nullopt;
    }

private:
    char takeCharacter() {
        const char result = rest_.front();
        rest_.remove_prefix(1);
        return result;
    }

    /// What cannot be printed comes as "\u" and a number. No shortcut holds any, so that is not
    /// read.
    bool takeEscaped(std::string& result) {
        if (rest_.empty()) {
            return false;
        }
        constexpr std::string_view letters = "abfnrtv";
        constexpr std::string_view meanings = "\a\b\f\n\r\t\v";
        const char character = takeCharacter();
        const std::size_t letter = letters.find(character);
        result += letter == std::string_view::npos ? character : meanings[letter];
        return true;
    }

    void skipBlanks() {
        while (rest_.starts_with(' ') || rest_.starts_with('\n') || rest_.starts_with('\r')) {
            rest_.remove_prefix(1);
        }
    }

    std::string_view rest_;
};

std::optional<std::vector<std::string>> arrayOfStrings(Reader& reader) {
    std::vector<std::string> result;
    if (reader.take("]")) {
        return result;
    }
    do {
        auto element = reader.takeString();
        if (!element) {
            return std::nullopt;
        }
        result.push_back(*std::move(element));
    } while (reader.take(","));
    return reader.take("]") ? std::optional(std::move(result)) : std::nullopt;
}

} // namespace

std::vector<std::string> gvariantStrings(std::string_view text) {
    Reader reader(text);
    std::vector<std::string> result;
    reader.take("@as"); // an empty array states its type
    if (reader.take("[")) {
        result = arrayOfStrings(reader).value_or(result);
    } else if (auto single = reader.takeString()) {
        result.push_back(*std::move(single));
    }
    return reader.isAtEnd() ? result : std::vector<std::string>();
}

} // namespace dwellkey
