// SPDX-License-Identifier: MIT
// The installed applications, as the desktop's menus list them. std + POSIX only.
#pragma once

#include "platform/application_catalog.h"
#include "platform/linux/desktop_entry_index.h"
#include "platform/localization.h"

#include <string>
#include <variant>
#include <vector>

namespace dwellkey {

class LinuxApplicationCatalog final : public ApplicationCatalog {
public:
    /// Both must outlive this.
    LinuxApplicationCatalog(const DesktopEntryIndex& index, const Localizer& localizer);

    [[nodiscard]] std::vector<CatalogedApplication> applications() const override;

    /// Takes desktop entries wherever they are, programs that one of them starts, and the
    /// "applications:" addresses by which some menus name what is dragged from them.
    [[nodiscard]] std::variant<Url, Problem> applicationAt(const Url& url) const override;

private:
    [[nodiscard]] std::variant<Url, Problem> applicationOfEntry(const Url& url) const;
    [[nodiscard]] Problem noApplication(const Url& url) const;

    const DesktopEntryIndex& index_;
    const Localizer& localizer_;
    Subscription indexChanges_;
};

} // namespace dwellkey
