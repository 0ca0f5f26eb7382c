// SPDX-License-Identifier: MIT
#include "binder_program.h"

#include <nlohmann/json.hpp>

namespace dwellkey::e2e {
namespace {

nlohmann::json storedShortcut(const std::string& settingsKey, int keyCode) {
    const nlohmann::ordered_json command{
        {"key", keyCode},
        {"modifiers", {{{"command", nlohmann::ordered_json::object()}}}},
        {"name", {{"rawValue", settingsKey}, {"prefix", ""}, {"separator", ""}}}};
    return {{"$data", command.dump()}};
}

} // namespace

std::string BinderSettings::json() const {
    nlohmann::json values{{"apps", apps}};
    if (!appsText.empty()) {
        values["apps"] = appsText;
    }
    if (delay) {
        values["delay"] = *delay;
    }
    if (exclusionType) {
        values["exclusionType"] = *exclusionType;
    }
    if (quitKey) {
        values["quitShortcut"] = storedShortcut("quitShortcut", *quitKey);
    }
    if (windowKey) {
        values["windowShortcut"] = storedShortcut("windowShortcut", *windowKey);
    }
    return values.dump(4);
}

BinderProgram::BinderProgram(Desktop& desktop, const BinderSettings& settings) : desktop_(desktop) {
    editSettings(settings);
    process_ = desktop.start({Desktop::built("dwellkey-binder")});
    const Screen& screen = desktop.screen();
    screen.await("the preferences",
                 [&] { return screen.windowTitled("Dwellkey Preferences").has_value(); });
}

void BinderProgram::editSettings(const BinderSettings& settings) {
    writeFile(desktop_.folder("config") / "dwellkey" / "settings.json", settings.json());
}

bool BinderProgram::isBound(xcb_keycode_t key) const {
    return desktop_.screen().isGrabbed(key, XCB_MOD_MASK_CONTROL);
}

void BinderProgram::awaitBound(xcb_keycode_t key) const {
    desktop_.screen().await("the shortcut to be bound", [&] { return isBound(key); });
}

void BinderProgram::awaitUnbound(xcb_keycode_t key) const {
    desktop_.screen().await("the shortcut to be free", [&] { return !isBound(key); });
}

} // namespace dwellkey::e2e
