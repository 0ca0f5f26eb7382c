// SPDX-License-Identifier: MIT
// Installed applications as bundles: a desktop entry is an application's location. std + POSIX.
#pragma once

#include "platform/bundle_reader.h"
#include "platform/image.h"
#include "platform/linux/desktop_entry_index.h"
#include "platform/linux/resource_files.h"

#include <optional>
#include <string>
#include <string_view>

namespace dwellkey {

class LinuxBundleReader : public BundleReader {
public:
    /// The index, which lends its folders and the user's language, must outlive this.
    LinuxBundleReader(const DesktopEntryIndex& index, ResourceFiles resources)
        : index_(index), resources_(std::move(resources)) {}

    /// The same identifier that a window of this application has.
    std::optional<std::string> bundleIdentifier(const Url& url) const override;
    std::optional<std::string> localizedName(const Url& url) const override;
    bool fileExists(const std::string& path) const override;
    std::optional<std::string> resourceText(std::string_view name,
                                            std::string_view type) const override;
    std::optional<std::string> pathForResource(std::string_view name,
                                               std::string_view type) const override;
    std::variant<std::string, ResourceError> fileText(const std::string& path) const override;
    std::optional<std::string> infoString(std::string_view key) const override;

    /// The icon that the desktop entry at this path states, or the one of any program.
    [[nodiscard]] Image icon(const std::string& path) const;
    [[nodiscard]] static Image icon(const DesktopEntry& entry);

private:
    /// Absent for a file that is no usable desktop entry of an application.
    [[nodiscard]] std::optional<DesktopEntry> entryAt(const std::string& path) const;

    const DesktopEntryIndex& index_;
    ResourceFiles resources_;
};

} // namespace dwellkey
