// SPDX-License-Identifier: MIT
// Whatever is in the settings file is either refused with a cause, or survives a save unchanged.
#include "fuzz_check.h"
#include "platform/linux/settings_format.h"

using namespace dwellkey;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto result = parseSettings(fuzz::textOf(data, size));
    if (const auto* problem = std::get_if<SettingsProblem>(&result)) {
        fuzz::check(!problem->cause.empty(), "a refusal has a cause");
        return 0;
    }
    const auto& settings = std::get<SettingsDocument>(result);
    const auto again = parseSettings(serializeSettings(settings));
    fuzz::check(std::holds_alternative<SettingsDocument>(again), "what we save can be read");
    fuzz::check(std::get<SettingsDocument>(again) == settings, "a save changes no setting");
    for (const auto& [key, setting] : settings) {
        if (setting.value) {
            const auto made = makeSetting(*setting.value);
            fuzz::check(made.has_value(), "what was read can be set");
            const auto reread = parseSettings(serializeSettings({{key, *made}}));
            fuzz::check(std::get<SettingsDocument>(reread).at(key).value == setting.value,
                        "a value that is set is read back");
        }
    }
    return 0;
}
