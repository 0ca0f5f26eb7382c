// SPDX-License-Identifier: MIT
#include "platform/linux/system_shortcuts.h"

#include "platform/hot_keys.h"

#include "platform/linux/key_positions.h"
#include "platform/linux/system_shortcuts_gsettings.h"
#include "platform/linux/system_shortcuts_kde.h"
#include "platform/linux/system_shortcuts_openbox.h"
#include "platform/linux/system_shortcuts_xfce.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace dwellkey {
namespace {

constexpr std::chrono::seconds longestCall{2};

enum class Desktop { gnome, cinnamon, mate, kde, xfce, lxqt, lxde, openbox };

struct DesktopName {
    std::string_view name;
    Desktop desktop;
};

constexpr auto knownDesktops = std::to_array<DesktopName>({
    {"gnome", Desktop::gnome},
    {"gnome-classic", Desktop::gnome},
    {"gnome-flashback", Desktop::gnome},
    {"ubuntu", Desktop::gnome},
    {"unity", Desktop::gnome},
    {"pantheon", Desktop::gnome},
    {"cinnamon", Desktop::cinnamon},
    {"x-cinnamon", Desktop::cinnamon},
    {"mate", Desktop::mate},
    {"kde", Desktop::kde},
    {"plasma", Desktop::kde},
    {"plasmax11", Desktop::kde},
    {"plasmawayland", Desktop::kde},
    {"xfce", Desktop::xfce},
    {"xubuntu", Desktop::xfce},
    {"lxqt", Desktop::lxqt},
    {"lubuntu", Desktop::lxqt},
    {"lxde", Desktop::lxde},
    {"openbox", Desktop::openbox},
});

std::vector<std::string> desktopNames(const Environment& environment) {
    for (const char* variable : {"XDG_CURRENT_DESKTOP", "XDG_SESSION_DESKTOP", "DESKTOP_SESSION"}) {
        std::vector<std::string> names = splitList(environment(variable).value_or(""), ':');
        for (std::string& name : names) {
            name = baseName(name); // DESKTOP_SESSION may be the path of a session file
            std::ranges::transform(name, name.begin(),
                                   [](unsigned char c) { return std::tolower(c); });
        }
        if (!names.empty()) {
            return names;
        }
    }
    return {};
}

std::vector<Desktop> desktopsOf(const std::vector<std::string>& names) {
    std::vector<Desktop> result;
    for (const std::string& name : names) {
        const auto known = std::ranges::find(knownDesktops, name, &DesktopName::name);
        if (known != knownDesktops.end()
            && std::ranges::find(result, known->desktop) == result.end()) {
            result.push_back(known->desktop);
        }
    }
    return result;
}

std::vector<std::string> openboxFiles(Desktop desktop) {
    switch (desktop) {
    case Desktop::lxqt:
        return {"lxqt-rc.xml", "rc.xml"};
    case Desktop::lxde:
        return {"lxde-rc.xml", "LXDE/rc.xml", "rc.xml"};
    default:
        return {"rc.xml"};
    }
}

ShortcutReading readOpenbox(Desktop desktop, const BaseFolders& folders) {
    const auto path = openboxConfiguration(folders, openboxFiles(desktop));
    return path ? readOpenboxShortcuts(*path)
                : ShortcutReading{{}, {"there is no rc.xml of Openbox"}};
}

ShortcutReading readDesktop(Desktop desktop, const BaseFolders& folders, const SettingsTool& run) {
    switch (desktop) {
    case Desktop::gnome:
        return readGnomeShortcuts(run);
    case Desktop::cinnamon:
        return readCinnamonShortcuts(run);
    case Desktop::mate:
        return readMateShortcuts(run);
    case Desktop::kde:
        return readKdeShortcuts(folders);
    case Desktop::xfce:
        return readXfceShortcuts(folders);
    default:
        return readOpenbox(desktop, folders);
    }
}

ShortcutReading readAll(const std::vector<Desktop>& desktops, const BaseFolders& folders,
                        const SettingsTool& run) {
    ShortcutReading result;
    for (const Desktop desktop : desktops) {
        ShortcutReading one = readDesktop(desktop, folders, run);
        std::ranges::move(one.accelerators, std::back_inserter(result.accelerators));
        std::ranges::move(one.problems, std::back_inserter(result.problems));
    }
    return result;
}

} // namespace

LinuxSystemShortcuts::LinuxSystemShortcuts(Environment environment, const KeyboardLayout& layout,
                                           ErrorLog& errorLog, RunProgram run)
    : environment_(std::move(environment)), layout_(layout), errorLog_(errorLog),
      run_(std::move(run)) {}

SystemShortcuts::List LinuxSystemShortcuts::copySymbolicHotKeys() const {
    const BaseFolders folders = BaseFolders::from(environment_);
    const auto names = desktopNames(environment_);
    auto desktops = desktopsOf(names);
    if (names.empty() && openboxConfiguration(folders, openboxFiles(Desktop::openbox))) {
        desktops.push_back(Desktop::openbox);
    }
    // One deadline for all programs of this call.
    const ChildLimits limits{std::chrono::steady_clock::now() + longestCall};
    ShortcutReading reading = readAll(
        desktops, folders, [&](const CommandWords& command) { return run_(command, limits); });
    const bool isUnread = reading.accelerators.empty() && !reading.problems.empty();
    if (desktops.empty() && !names.empty()) {
        reading.problems.push_back("the desktop \"" + names.front() + "\" is not known");
    }
    logNew(reading.problems);
    return isUnread ? List{eventInternalErr, {}} : List{noErr, entriesOf(reading.accelerators)};
}

std::vector<SystemShortcuts::Entry>
LinuxSystemShortcuts::entriesOf(const std::vector<Accelerator>& accelerators) const {
    KeyPositions positions(layout_);
    std::vector<Entry> result;
    for (const Accelerator& accelerator : accelerators) {
        if (const auto position = positions.find(accelerator.key)) {
            const bool addsShift =
                position->needsShift && accelerator.symbolShift == SymbolShift::implied;
            const std::uint32_t modifiers =
                accelerator.modifiers | (addsShift ? hot_key_mask::shift : 0);
            result.push_back({true, position->keyCode, modifiers});
        }
    }
    return result;
}

void LinuxSystemShortcuts::logNew(const std::vector<std::string>& problems) const {
    std::set<std::string> current(problems.begin(), problems.end());
    for (const std::string& problem : current) {
        if (!logged_.contains(problem)) {
            errorLog_.error("The desktop's own shortcuts cannot all be read", problem);
        }
    }
    logged_ = std::move(current);
}

} // namespace dwellkey
