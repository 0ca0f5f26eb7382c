// SPDX-License-Identifier: MIT
// A location as an absolute URL string. std only.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace dwellkey {

/// An absolute URL, kept exactly as it was given: neither normalised nor resolved, so two URLs
/// are equal only when their texts are.
class Url {
public:
    /// Accepts a text with a scheme (RFC 3986), no white space or control characters and only
    /// complete %-escapes; anything else is no URL.
    static std::optional<Url> parse(std::string_view text);

    /// The file: URL of an absolute path; bytes outside the unreserved set are %-escaped.
    static Url fromPath(std::string_view absolutePath);

    [[nodiscard]] const std::string& absoluteString() const { return text_; }

    /// The unescaped path of a file: URL (host empty or "localhost"); otherwise the unescaped
    /// path component, which then names no local file.
    [[nodiscard]] std::string path() const;

    /// The path's last component, trailing slashes ignored; "" for the root or an empty path.
    [[nodiscard]] std::string lastPathComponent() const;

    [[nodiscard]] bool isFile() const;

    bool operator==(const Url&) const = default;

private:
    explicit Url(std::string text) : text_(std::move(text)) {}
    std::string text_;
};

} // namespace dwellkey
