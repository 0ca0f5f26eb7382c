// SPDX-License-Identifier: MIT
#include "platform/linux/linux_bundle_reader.h"

#include "platform/linux/display_name.h"

#include <variant>

namespace dwellkey {
namespace {

constexpr std::string_view genericIcon = "application-x-executable";

/// A theme's icons are named without a file type, which some entries state all the same.
std::string themeName(std::string name) {
    for (const std::string_view type : {".png", ".svg", ".xpm"}) {
        if (name.ends_with(type) && name.size() > type.size()) {
            name.resize(name.size() - type.size());
            break;
        }
    }
    return name;
}

} // namespace

std::optional<std::string> LinuxBundleReader::bundleIdentifier(const Url& url) const {
    if (!url.isFile() || !entryAt(url.path())) {
        return std::nullopt;
    }
    return desktopEntryId(url.path(), index_.folders());
}

std::optional<std::string> LinuxBundleReader::localizedName(const Url& url) const {
    const auto entry = url.isFile() ? entryAt(url.path()) : std::nullopt;
    return entry ? displayName(entry->name) : std::nullopt;
}

bool LinuxBundleReader::fileExists(const std::string& path) const {
    return ResourceFiles::fileExists(path);
}

std::optional<std::string> LinuxBundleReader::resourceText(std::string_view name,
                                                           std::string_view type) const {
    return resources_.resourceText(name, type);
}

std::optional<std::string> LinuxBundleReader::pathForResource(std::string_view name,
                                                              std::string_view type) const {
    return resources_.pathForResource(name, type);
}

std::variant<std::string, ResourceError>
LinuxBundleReader::fileText(const std::string& path) const {
    return ResourceFiles::fileText(path);
}

std::optional<std::string> LinuxBundleReader::infoString(std::string_view key) const {
    return ResourceFiles::infoString(key);
}

Image LinuxBundleReader::icon(const std::string& path) const {
    const auto entry = entryAt(path);
    return entry ? icon(*entry) : Image{std::string(genericIcon)};
}

Image LinuxBundleReader::icon(const DesktopEntry& entry) {
    if (!entry.icon) {
        return {std::string(genericIcon)};
    }
    return {entry.icon->starts_with('/') ? *entry.icon : themeName(*entry.icon)};
}

std::optional<DesktopEntry> LinuxBundleReader::entryAt(const std::string& path) const {
    if (!desktopEntryId(path, index_.folders())) {
        return std::nullopt;
    }
    auto read = readDesktopEntry(path, index_.locales());
    auto* entry = std::get_if<DesktopEntry>(&read);
    return entry == nullptr || entry->hidden ? std::nullopt : std::optional(std::move(*entry));
}

} // namespace dwellkey
