// SPDX-License-Identifier: MIT
#include "platform/linux/linux_application_catalog.h"

#include "platform/linux/display_name.h"
#include "platform/linux/linux_bundle_reader.h"

#include <string_view>

namespace dwellkey {
namespace {

constexpr std::string_view entrySuffix = ".desktop";
constexpr std::string_view menuScheme = "applications:";

} // namespace

LinuxApplicationCatalog::LinuxApplicationCatalog(const DesktopEntryIndex& index,
                                                 const Localizer& localizer)
    : index_(index), localizer_(localizer),
      indexChanges_(index.didChange.subscribe([this] { didChange.emit(); })) {}

std::vector<CatalogedApplication> LinuxApplicationCatalog::applications() const {
    std::vector<CatalogedApplication> result;
    for (const InstalledApplication& application : index_.applications()) {
        const auto name = displayName(application.entry.name);
        if (!application.entry.noDisplay && !application.entry.hidden && name) {
            result.push_back({Url::fromPath(application.path), application.id, *name,
                              LinuxBundleReader::icon(application.entry)});
        }
    }
    return result;
}

std::variant<Url, ApplicationCatalog::Problem>
LinuxApplicationCatalog::applicationAt(const Url& url) const {
    const std::string& address = url.absoluteString();
    if (address.starts_with(menuScheme)) {
        std::string_view id = std::string_view(address).substr(menuScheme.size());
        if (id.ends_with(entrySuffix)) {
            id.remove_suffix(entrySuffix.size());
        }
        const InstalledApplication* found = index_.byId(id);
        if (found == nullptr) {
            return noApplication(url);
        }
        return Url::fromPath(found->path);
    }
    if (!url.isFile()) {
        return noApplication(url);
    }
    if (url.path().ends_with(entrySuffix)) {
        return applicationOfEntry(url);
    }
    const InstalledApplication* started = index_.byExecutable(url.path());
    if (started == nullptr) {
        return noApplication(url);
    }
    return Url::fromPath(started->path);
}

std::variant<Url, ApplicationCatalog::Problem>
LinuxApplicationCatalog::applicationOfEntry(const Url& url) const {
    const auto read = readDesktopEntry(url.path(), index_.locales());
    if (const auto* problem = std::get_if<DesktopEntryProblem>(&read)) {
        return Problem{withArgument(localizer_.localized("LinuxApplicationCatalog",
                                                         "It cannot be read as an application: %1"),
                                    problem->cause)};
    }
    if (std::get<DesktopEntry>(read).hidden) {
        return noApplication(url);
    }
    return url;
}

ApplicationCatalog::Problem LinuxApplicationCatalog::noApplication(const Url& url) const {
    return {withArgument(
        localizer_.localized("LinuxApplicationCatalog", "\"%1\" is not an installed application."),
        displayName(url.isFile() ? url.path() : url.absoluteString()).value_or(""))};
}

} // namespace dwellkey
