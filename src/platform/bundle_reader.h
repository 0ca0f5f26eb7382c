// SPDX-License-Identifier: MIT
// What is installed: applications, and this program's own resources. std only.
#pragma once

#include "support/url.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace dwellkey {

/// Why a file could not be read: one line that names it.
struct ResourceError {
    std::string description;
};

class BundleReader {
public:
    BundleReader() = default;
    BundleReader(const BundleReader&) = delete;
    BundleReader& operator=(const BundleReader&) = delete;
    virtual ~BundleReader() = default;

    /// The identifier that the application at this location declares; absent when it cannot be
    /// read or declares none.
    [[nodiscard]] virtual std::optional<std::string> bundleIdentifier(const Url& url) const = 0;

    /// The application's name in the user's language; absent when it cannot be read.
    [[nodiscard]] virtual std::optional<std::string> localizedName(const Url& url) const = 0;

    [[nodiscard]] virtual bool fileExists(const std::string& path) const = 0;

    /// The text of one of our own resources ("CloseWindow", "scpt"), as UTF-8; absent when it is
    /// missing or unreadable.
    [[nodiscard]] virtual std::optional<std::string> resourceText(std::string_view name,
                                                                  std::string_view type) const = 0;

    /// Where one of our own resources is; absent when it is not installed. Its file may still be
    /// unreadable.
    [[nodiscard]] virtual std::optional<std::string>
    pathForResource(std::string_view name, std::string_view type) const = 0;

    /// The whole text of a file, as UTF-8, or why it cannot be had.
    [[nodiscard]] virtual std::variant<std::string, ResourceError>
    fileText(const std::string& path) const = 0;

    /// An entry of our own information dictionary ("CFBundleShortVersionString").
    [[nodiscard]] virtual std::optional<std::string> infoString(std::string_view key) const = 0;
};

} // namespace dwellkey
