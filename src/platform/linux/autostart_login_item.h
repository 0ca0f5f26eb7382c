// SPDX-License-Identifier: MIT
// Starting with the session, by the desktops' common autostart folder. std and POSIX only.
#pragma once

#include "platform/linux/environment.h"
#include "platform/localization.h"
#include "platform/run_loop.h"
#include "platform/session.h"

#include <optional>
#include <string>
#include <vector>

namespace dwellkey {

struct AutostartPlaces {
    std::string autostartFolder;
    std::vector<std::string> applicationFolders; ///< first match wins
    std::vector<std::string> currentDesktops;    ///< the names that OnlyShowIn may give this one

    static AutostartPlaces from(const Environment& environment);
};

/// The login item is an entry in the autostart folder, made from our installed desktop entry.
///
///   enabled           it is there, and this desktop starts it
///   notRegistered     it is not there, or is none
///   requiresApproval  it is there, but the user has switched it off in the desktop's own settings;
///                     only there can it be switched on again, so registering is an error
///   notFound          our desktop entry is not installed
class AutostartLoginItem final : public LoginItem {
public:
    /// The loop and the localizer must outlive the item.
    AutostartLoginItem(AutostartPlaces places, RunLoop& runLoop, const Localizer& localizer)
        : places_(std::move(places)), runLoop_(runLoop), localizer_(localizer) {}

    /// Leaves an enabled entry as it is: the user may have added to it.
    std::optional<Error> registerItem() override;
    /// No error when there is nothing to remove.
    std::optional<Error> unregisterItem() override;
    [[nodiscard]] LoginItemStatus status() const override;
    /// Watches the folder as long as the subscription lives.
    [[nodiscard]] Subscription observe(std::function<void()> changed) override;

private:
    [[nodiscard]] std::string entryPath() const;
    [[nodiscard]] std::optional<std::string> installedEntry() const;
    [[nodiscard]] std::optional<Error> writeEntry(const std::string& installed) const;

    AutostartPlaces places_;
    RunLoop& runLoop_;
    const Localizer& localizer_;
};

} // namespace dwellkey
