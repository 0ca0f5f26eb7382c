// SPDX-License-Identifier: MIT
#include "platform/linux/system_shortcuts_kde.h"

#include "platform/linux/key_file.h"

#include <map>
#include <utility>

namespace dwellkey {
namespace {

/// By component and action.
using Actions = std::map<std::pair<std::string, std::string>, std::string>;

void mergeActions(std::string_view text, Actions& actions) {
    KeyFileReader reader(text);
    std::string_view component;
    while (const auto line = reader.next()) {
        if (line->kind == KeyFileLine::Kind::groupHeader) {
            component = line->group;
        } else if (line->kind == KeyFileLine::Kind::malformed && line->value.starts_with('[')) {
            component = line->value; // "[services][org.kde.dolphin.desktop]"
        } else if (line->kind == KeyFileLine::Kind::pair && line->key != "_k_friendly_name") {
            actions.insert_or_assign({std::string(component), std::string(line->key)},
                                     unescapedValue(line->value));
        }
    }
}

/// The first element of "in force,default,description", in which a backslash guards a comma.
std::string inForce(std::string_view value) {
    std::string result;
    for (std::size_t i = 0; i < value.size() && value[i] != ','; ++i) {
        if (value[i] == '\\' && i + 1 < value.size()) {
            ++i;
        }
        result += value[i];
    }
    return result;
}

} // namespace

ShortcutReading readKdeShortcuts(const BaseFolders& folders) {
    ShortcutReading result;
    Actions actions;
    for (const SettingsLayer& layer : readLayers(folders, "kglobalshortcutsrc", result)) {
        mergeActions(layer.text, actions);
    }
    for (const auto& [action, value] : actions) {
        for (const std::string& alternative : splitList(inForce(value), '\t')) {
            if (alternative != "none") {
                result.add(parseQtShortcut(alternative));
            }
        }
    }
    return result;
}

} // namespace dwellkey
