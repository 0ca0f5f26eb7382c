// SPDX-License-Identifier: MIT
#include "platform/linux/system_shortcuts_xfce.h"

#include "platform/linux/xml_element.h"

#include <algorithm>
#include <array>
#include <map>

namespace dwellkey {
namespace {

constexpr const char* channelFile = "xfce4/xfconf/xfce-perchannel-xml/xfce4-keyboard-shortcuts.xml";

/// From combination to what it does.
using Bindings = std::map<std::string, std::string, std::less<>>;

struct Section {
    Bindings defaults;
    Bindings custom;
    bool isCustomInForce = false;
};

struct Sections {
    Section commands;
    Section windowManager;
};

const XmlElement* property(const XmlElement& parent, std::string_view name) {
    const auto found = std::ranges::find_if(
        parent.children, [&](const XmlElement& child) { return child.attribute("name") == name; });
    return found == parent.children.end() ? nullptr : &*found;
}

void mergeBindings(const XmlElement& section, std::string_view name, Bindings& bindings) {
    const XmlElement* set = property(section, name);
    if (set == nullptr) {
        return;
    }
    for (const XmlElement& child : set->children) {
        if (child.attribute("type") == "string") {
            bindings.insert_or_assign(std::string(child.attribute("name")),
                                      child.attribute("value"));
        }
    }
}

void mergeSection(const XmlElement& channel, std::string_view name, Section& section) {
    const XmlElement* element = property(channel, name);
    if (element == nullptr) {
        return;
    }
    mergeBindings(*element, "default", section.defaults);
    mergeBindings(*element, "custom", section.custom);
    const XmlElement* custom = property(*element, "custom");
    const XmlElement* override = custom == nullptr ? nullptr : property(*custom, "override");
    if (override != nullptr) {
        section.isCustomInForce = override->attribute("value") == "true";
    }
}

/// The window manager takes these only while a window is moved or an action is chosen.
bool isTaken(std::string_view action) {
    constexpr auto momentary = std::to_array<std::string_view>(
        {"", "cancel_key", "left_key", "right_key", "up_key", "down_key"});
    return std::ranges::find(momentary, action) == momentary.end();
}

void addInForce(const Section& section, ShortcutReading& reading) {
    for (const auto& [combination, action] :
         section.isCustomInForce ? section.custom : section.defaults) {
        if (isTaken(action)) {
            reading.add(parseGtkAccelerator(combination));
        }
    }
}

} // namespace

ShortcutReading readXfceShortcuts(const BaseFolders& folders) {
    ShortcutReading result;
    Sections sections;
    for (const SettingsLayer& layer : readLayers(folders, channelFile, result)) {
        const auto parsed = parseXml(layer.text);
        if (const auto* problem = std::get_if<XmlProblem>(&parsed)) {
            result.problems.push_back(layer.path + ": " + problem->cause);
            continue;
        }
        mergeSection(std::get<XmlElement>(parsed), "commands", sections.commands);
        mergeSection(std::get<XmlElement>(parsed), "xfwm4", sections.windowManager);
    }
    addInForce(sections.commands, result);
    addInForce(sections.windowManager, result);
    return result;
}

} // namespace dwellkey
