// SPDX-License-Identifier: MIT
#include "platform/linux/application_identity.h"

#include "platform/linux/display_name.h"
#include "platform/linux/exec_command.h"

#include <algorithm>
#include <array>
#include <unistd.h>
#include <utility>
#include <variant>

namespace dwellkey {
namespace {

std::optional<InstalledApplication> valueOf(const InstalledApplication* application) {
    return application == nullptr ? std::nullopt : std::optional(*application);
}

bool isTerminal(const InstalledApplication& application) {
    const auto& categories = application.entry.categories;
    return std::ranges::find(categories, "TerminalEmulator") != categories.end();
}

/// The kernel's word that a program came out of a snap.
bool isInsideSnap(std::string_view executable) {
    return executable.starts_with("/snap/") || executable.starts_with("/var/lib/snapd/snap/");
}

} // namespace

ApplicationIdentity ApplicationIdentifier::identify(const WindowFacts& window) const {
    ApplicationIdentity identity;
    identity.isFileManager = window.ownsDesktopWindow;
    if (const auto application = installedApplication(window)) {
        identity.bundleIdentifier = application->id;
        identity.bundleUrl = Url::fromPath(application->path);
        identity.localizedName = displayName(application->entry.name);
        identity.isFileManager |= isFileManager(*application);
    } else if (!window.className.empty()) {
        identity.bundleIdentifier = window.className;
    }
    if (!identity.bundleUrl && window.process == getpid()) {
        // We are an application like any other, also where no entry of ours is installed.
        if (const auto executable = processes_.executable(*window.process)) {
            identity.bundleUrl = Url::fromPath(*executable);
        }
    }
    if (!identity.localizedName) {
        identity.localizedName = fallbackName(window);
    }
    return identity;
}

ApplicationIdentifier::Found
ApplicationIdentifier::installedApplication(const WindowFacts& window) const {
    using Step = Found (ApplicationIdentifier::*)(const WindowFacts&) const;
    constexpr std::array<Step, 7> steps = {
        &ApplicationIdentifier::byStartupWmClass, &ApplicationIdentifier::byEntryName,
        &ApplicationIdentifier::bySandbox,        &ApplicationIdentifier::byGtkApplicationId,
        &ApplicationIdentifier::bySessionUnit,    &ApplicationIdentifier::byLaunchedEntry,
        &ApplicationIdentifier::byExecutable,
    };
    for (const Step step : steps) {
        if (auto application = (this->*step)(window)) {
            return application;
        }
    }
    return std::nullopt;
}

ApplicationIdentifier::Found
ApplicationIdentifier::byStartupWmClass(const WindowFacts& window) const {
    // The instance is the narrower of the two: a web page that runs as an application of its own
    // has the browser's class.
    const auto* application = index_.byStartupWmClass(window.classInstance);
    return valueOf(application != nullptr ? application
                                          : index_.byStartupWmClass(window.className));
}

ApplicationIdentifier::Found ApplicationIdentifier::byEntryName(const WindowFacts& window) const {
    const auto* application = index_.byWindowClass(window.classInstance);
    return valueOf(application != nullptr ? application : index_.byWindowClass(window.className));
}

ApplicationIdentifier::Found ApplicationIdentifier::bySandbox(const WindowFacts& window) const {
    if (!window.process) {
        return std::nullopt;
    }
    if (const auto info = processes_.flatpakInfo(*window.process)) {
        const auto id = flatpakApplication(*info);
        return id ? valueOf(index_.byFlatpakId(*id)) : std::nullopt;
    }
    return bySnap(*window.process);
}

ApplicationIdentifier::Found ApplicationIdentifier::bySnap(pid_t process) const {
    // Whatever an editor's or a terminal's snap starts inherits its variables and its group, so
    // these only count for programs from inside a snap.
    if (!isInsideSnap(processes_.executable(process).value_or(""))) {
        return std::nullopt;
    }
    if (const auto snap = snapApplication(processes_.controlGroups(process).value_or(""))) {
        const auto* application = index_.byId(snap->instanceName + "_" + snap->application);
        return valueOf(application != nullptr ? application
                                              : index_.bySnapInstanceName(snap->instanceName));
    }
    const auto name = processes_.environmentVariable(process, "SNAP_INSTANCE_NAME");
    return name ? valueOf(index_.bySnapInstanceName(*name)) : std::nullopt;
}

ApplicationIdentifier::Found
ApplicationIdentifier::byGtkApplicationId(const WindowFacts& window) const {
    return window.gtkApplicationId ? valueOf(index_.byId(*window.gtkApplicationId)) : std::nullopt;
}

ApplicationIdentifier::Found ApplicationIdentifier::bySessionUnit(const WindowFacts& window) const {
    if (!window.process) {
        return std::nullopt;
    }
    const auto groups = processes_.controlGroups(*window.process);
    for (const std::string& id : sessionUnitApplications(groups.value_or(""))) {
        if (const auto* application = index_.byId(id)) {
            return unlessInherited(*application, *window.process);
        }
    }
    return std::nullopt;
}

ApplicationIdentifier::Found
ApplicationIdentifier::byLaunchedEntry(const WindowFacts& window) const {
    if (!window.process) {
        return std::nullopt;
    }
    const auto variable = [&](std::string_view name) {
        return processes_.environmentVariable(*window.process, name);
    };
    if (const auto path = variable("GIO_LAUNCHED_DESKTOP_FILE")) {
        // With another process's number it was inherited from the one that was launched.
        const auto launched = variable("GIO_LAUNCHED_DESKTOP_FILE_PID");
        if (!launched || *launched == std::to_string(*window.process)) {
            if (auto application = unlessInherited(launchedEntry(*path), *window.process)) {
                return application;
            }
        }
    }
    const auto hint = variable("BAMF_DESKTOP_FILE_HINT");
    return hint ? unlessInherited(launchedEntry(*hint), *window.process) : std::nullopt;
}

ApplicationIdentifier::Found ApplicationIdentifier::byExecutable(const WindowFacts& window) const {
    return window.process ? runBy(*window.process) : std::nullopt;
}

/// A launcher on the user's desktop need not be in any applications folder.
ApplicationIdentifier::Found ApplicationIdentifier::launchedEntry(const std::string& path) const {
    const auto id = desktopEntryId(path, index_.folders());
    if (!id || !path.starts_with('/')) {
        return std::nullopt;
    }
    if (const auto* application = index_.byId(*id)) {
        return *application;
    }
    auto read = readDesktopEntry(path, index_.locales());
    auto* entry = std::get_if<DesktopEntry>(&read);
    if (entry == nullptr || entry->hidden) {
        return std::nullopt;
    }
    return InstalledApplication{*id, path, std::move(*entry)};
}

/// What the user starts in a terminal inherits the terminal's unit and variables, and would pass
/// for the terminal; so of a terminal they are believed only with its own program.
ApplicationIdentifier::Found ApplicationIdentifier::unlessInherited(Found application,
                                                                    pid_t process) const {
    if (application && isTerminal(*application)) {
        const auto own = runBy(process);
        if (!own || own->id != application->id) {
            return std::nullopt;
        }
    }
    return application;
}

ApplicationIdentifier::Found ApplicationIdentifier::runBy(pid_t process) const {
    auto executable = processes_.executable(process);
    if (executable && isInterpreter(*executable)) {
        const auto script = programOf(processes_.commandLine(process));
        executable = script ? std::optional(script->name) : std::nullopt;
    }
    return executable ? valueOf(index_.byExecutable(*executable)) : std::nullopt;
}

std::optional<std::string> ApplicationIdentifier::fallbackName(const WindowFacts& window) const {
    if (auto name = displayName(window.className)) {
        return name;
    }
    const auto executable = window.process ? processes_.executable(*window.process) : std::nullopt;
    return executable ? displayName(baseName(*executable)) : std::nullopt;
}

bool ApplicationIdentifier::isFileManager(const InstalledApplication& application) const {
    const auto& manager = fileManager_.identifier();
    if (!manager || application.id == *manager) {
        return manager.has_value();
    }
    // Some file managers open folders with a second, hidden entry of the same program.
    const auto* handler = index_.byId(*manager);
    const auto opens = handler != nullptr ? programOf(handler->entry) : std::nullopt;
    const auto runs = programOf(application.entry);
    if (!opens || opens->hasArguments || !runs) {
        return false;
    }
    const auto opensFile = index_.resolvedProgram(opens->name);
    return opensFile && opensFile == index_.resolvedProgram(runs->name);
}

} // namespace dwellkey
