// SPDX-License-Identifier: MIT
#include "harness/dwellkey_program.h"

#include "harness/failure.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>

namespace dwellkey::e2e {

namespace {

constexpr int quitKeyCode = 12;        // the key of q
constexpr int closeWindowKeyCode = 13; // the key of w

/// In exactly the form that the program stores, so that it starts without a need to save.
nlohmann::json storedShortcut(const std::string& name, int keyCode) {
    const nlohmann::ordered_json command{
        {"key", keyCode},
        {"modifiers", {{{"command", nlohmann::ordered_json::object()}}}},
        {"name", {{"rawValue", name}, {"prefix", ""}, {"separator", ""}}}};
    return {{"$data", command.dump()}};
}

/// Every state of Caps Lock (Lock) and Num Lock (Mod2 on the test server).
constexpr std::array<std::uint16_t, 4> combinations{
    XCB_MOD_MASK_CONTROL, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_LOCK,
    XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_2,
    XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2};

} // namespace

std::string Settings::json() const {
    nlohmann::json values{
        {"isFirstLaunch", isFirstLaunch},
        {"showMenuBarIcon", showsMenuBarIcon},
        {"delayUntilActivation", delay},
        {"selectedAppScope", scope == Scope::allExceptListed
                                 ? "Use Dwellkey with all apps except..."
                                 : "Only use Dwellkey with the following apps..."},
        {"appURLs", listedApplications},
        {"quitApplication", storedShortcut("quitApplication", quitKeyCode)}};
    if (guardsCloseWindow) {
        values["closeWindow"] = storedShortcut("closeWindow", closeWindowKeyCode);
    }
    return values.dump(4);
}

Milliseconds Settings::delayInMilliseconds() const {
    return std::chrono::duration_cast<Milliseconds>(std::chrono::duration<double>(delay));
}

Dwellkey::Dwellkey(Desktop& desktop, const Settings& settings, const Environment& additions)
    : desktop_(desktop) {
    editSettings(settings);
    process_ = desktop.start({Desktop::built("dwellkey")}, additions);
}

void Dwellkey::editSettings(const Settings& settings) {
    writeFile(desktop_.folder("config") / "dwellkey" / "settings.json", settings.json());
}

void Dwellkey::awaitGuarding(xcb_keycode_t key) const {
    desktop_.screen().await("Dwellkey to take its combination", [&] {
        if (!process_->isRunning()) {
            throw Failure("Dwellkey ended:\n" + log());
        }
        return std::ranges::all_of(combinations, [&](auto modifiers) {
            return desktop_.screen().isGrabbed(key, modifiers);
        });
    });
}

void Dwellkey::awaitStandingDown(xcb_keycode_t key) const {
    desktop_.screen().await("Dwellkey to leave its combination to the application", [&] {
        return std::ranges::none_of(combinations, [&](auto modifiers) {
            return desktop_.screen().isGrabbed(key, modifiers);
        });
    });
}

} // namespace dwellkey::e2e
