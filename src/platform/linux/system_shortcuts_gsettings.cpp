// SPDX-License-Identifier: MIT
#include "platform/linux/system_shortcuts_gsettings.h"

#include "platform/linux/environment.h"
#include "platform/linux/gvariant_text.h"
#include "platform/linux/key_file.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace dwellkey {
namespace {

constexpr auto gnomeSchemas = std::to_array<std::string_view>({
    "org.gnome.desktop.wm.keybindings",
    "org.gnome.shell.keybindings",
    "org.gnome.mutter.keybindings",
    "org.gnome.mutter.wayland.keybindings",
    "org.gnome.settings-daemon.plugins.media-keys",
});

constexpr auto cinnamonSchemas = std::to_array<std::string_view>({
    "org.cinnamon.desktop.keybindings",
    "org.cinnamon.desktop.keybindings.wm",
    "org.cinnamon.desktop.keybindings.media-keys",
    "org.cinnamon.muffin.keybindings",
});

constexpr auto mateSchemas = std::to_array<std::string_view>({
    "org.mate.Marco.global-keybindings",
    "org.mate.Marco.window-keybindings",
    "org.mate.SettingsDaemon.plugins.media-keys",
});

/// The output, "" with a problem noted when there is none.
std::string outputOrProblem(const SettingsTool& run, const CommandWords& command,
                            ShortcutReading& reading) {
    auto printed = run(command);
    if (const auto* problem = std::get_if<ChildProblem>(&printed)) {
        reading.problems.push_back(problem->cause);
        return {};
    }
    return std::get<std::string>(std::move(printed));
}

void addAll(std::string_view value, ShortcutReading& reading) {
    for (const std::string& text : gvariantStrings(value)) {
        reading.add(parseGtkAccelerator(text));
    }
}

/// A line of the listing: "schema key value".
struct Setting {
    std::string_view schema;
    std::string_view key;
    std::string_view value;
};

Setting settingOf(std::string_view line) {
    const auto takeWord = [&line] {
        const std::string_view word = line.substr(0, line.find(' '));
        line.remove_prefix(std::min(word.size() + 1, line.size()));
        return word;
    };
    const std::string_view schema = takeWord();
    const std::string_view key = takeWord();
    return {schema, key, line};
}

/// The values of the setting that lists the user's own shortcuts.
struct UserList {
    std::string_view schema;
    std::string_view key;
};

/// Everything in one run: a run for each schema would fail for those that this version lacks.
std::vector<std::string> readSchemas(std::span<const std::string_view> schemas, UserList userList,
                                     const SettingsTool& run, ShortcutReading& reading) {
    const std::string listing = outputOrProblem(run, {"gsettings", "list-recursively"}, reading);
    std::vector<std::string> result;
    bool hasAny = false;
    for (const std::string& line : splitList(listing, '\n')) {
        const Setting setting = settingOf(line);
        if (std::ranges::find(schemas, setting.schema) == schemas.end()) {
            continue;
        }
        hasAny = true;
        if (setting.schema == userList.schema && setting.key == userList.key) {
            result = gvariantStrings(setting.value);
        } else {
            addAll(setting.value, reading);
        }
    }
    if (!hasAny && reading.problems.empty()) {
        reading.problems.push_back("gsettings: there is no " + std::string(schemas.front()));
    }
    return result;
}

void readUserShortcut(std::string_view schema, const std::string& path, const SettingsTool& run,
                      ShortcutReading& reading) {
    const std::string place = std::string(schema) + ":" + path;
    addAll(outputOrProblem(run, {"gsettings", "get", place, "binding"}, reading), reading);
}

} // namespace

ShortcutReading readGnomeShortcuts(const SettingsTool& run) {
    constexpr UserList userList{"org.gnome.settings-daemon.plugins.media-keys",
                                "custom-keybindings"};
    ShortcutReading result;
    for (const std::string& path : readSchemas(gnomeSchemas, userList, run, result)) {
        readUserShortcut("org.gnome.settings-daemon.plugins.media-keys.custom-keybinding", path,
                         run, result);
    }
    return result;
}

ShortcutReading readCinnamonShortcuts(const SettingsTool& run) {
    constexpr UserList userList{"org.cinnamon.desktop.keybindings", "custom-list"};
    ShortcutReading result;
    for (const std::string& name : readSchemas(cinnamonSchemas, userList, run, result)) {
        if (name == "__dummy__") { // only makes the list differ, so that the desktop reads it anew
            continue;
        }
        readUserShortcut("org.cinnamon.desktop.keybindings.custom-keybinding",
                         "/org/cinnamon/desktop/keybindings/custom-keybindings/" + name + "/", run,
                         result);
    }
    return result;
}

ShortcutReading readMateShortcuts(const SettingsTool& run) {
    ShortcutReading result;
    readSchemas(mateSchemas, {}, run, result);
    // The user's own ones are on no list; their folder is.
    const std::string dump =
        outputOrProblem(run, {"dconf", "dump", "/org/mate/desktop/keybindings/"}, result);
    KeyFileReader reader(dump);
    while (const auto line = reader.next()) {
        if (line->kind == KeyFileLine::Kind::pair && line->key == "binding") {
            addAll(line->value, result);
        }
    }
    return result;
}

} // namespace dwellkey
