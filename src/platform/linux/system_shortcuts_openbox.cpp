// SPDX-License-Identifier: MIT
#include "platform/linux/system_shortcuts_openbox.h"

#include "platform/linux/xml_element.h"

#include <algorithm>
#include <filesystem>

namespace dwellkey {
namespace {

/// Openbox passes over a binding that does nothing.
bool isInForce(const XmlElement& binding) {
    return binding.child("action") != nullptr
           || std::ranges::any_of(binding.children, [](const XmlElement& child) {
                  return child.name == "keybind" && isInForce(child);
              });
}

void addBindings(const XmlElement& keyboard, ShortcutReading& reading) {
    for (const XmlElement& binding : keyboard.children) {
        if (binding.name != "keybind" || !isInForce(binding)) {
            continue;
        }
        for (const std::string& alternative : splitList(binding.attribute("key"), ' ')) {
            reading.add(parseOpenboxKey(alternative));
        }
    }
}

} // namespace

std::optional<std::string> openboxConfiguration(const BaseFolders& folders,
                                                const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        for (const std::string& folder : folders.configFolders()) {
            std::string path = folder;
            path.append("/openbox/").append(name);
            std::error_code error;
            if (std::filesystem::exists(path, error) || error) {
                return path;
            }
        }
    }
    return std::nullopt;
}

ShortcutReading readOpenboxShortcuts(const std::string& path) {
    ShortcutReading result;
    const auto text = readIfPresent(path, result);
    if (!text) {
        return result;
    }
    const auto parsed = parseXml(*text);
    if (const auto* problem = std::get_if<XmlProblem>(&parsed)) {
        result.problems.push_back(path + ": " + problem->cause);
        return result;
    }
    for (const XmlElement& element : std::get<XmlElement>(parsed).children) {
        if (element.name == "keyboard") {
            addBindings(element, result);
        }
    }
    return result;
}

} // namespace dwellkey
