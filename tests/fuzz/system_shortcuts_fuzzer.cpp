// SPDX-License-Identifier: MIT
// Whatever the settings of a desktop say, the shortcuts read from them are complete and within the
// vocabulary. The first byte names the desktop, the rest is its file or what its tool prints.
#include "fuzz_check.h"
#include "platform/linux/evdev_key_codes.h"
#include "platform/linux/system_shortcuts.h"
#include "scratch_folder.h"

using namespace dwellkey;

namespace {

struct Desktop {
    char letter;
    std::string_view name;
    std::string_view file; // "" where a tool is asked
};

constexpr Desktop desktops[] = {
    {'G', "GNOME", ""},
    {'M', "MATE", ""},
    {'K', "KDE", "kglobalshortcutsrc"},
    {'X', "XFCE", "xfce4/xfconf/xfce-perchannel-xml/xfce4-keyboard-shortcuts.xml"},
    {'O', "Openbox", "openbox/rc.xml"},
};

class SomeLayout final : public KeyboardLayout {
public:
    [[nodiscard]] std::string character(std::uint16_t keyCode) const override {
        return keyCode == 0 ? "q" : "";
    }
};

class SilentLog final : public ErrorLog {
public:
    void error(std::string_view /*message*/, std::string_view /*cause*/) override {}
};

SystemShortcuts::List listOf(const Desktop& desktop, const std::string& text) {
    static const testing::ScratchFolder scratch;
    if (!desktop.file.empty()) {
        testing::writeFile(scratch / desktop.file, text);
    }
    const auto environment = [&](std::string_view variable) -> std::optional<std::string> {
        if (variable == "XDG_CURRENT_DESKTOP") {
            return std::string(desktop.name);
        }
        return variable == "XDG_CONFIG_HOME" ? scratch.path().string() : "/nowhere";
    };
    const SomeLayout layout;
    SilentLog log;
    return LinuxSystemShortcuts(environment, layout, log,
                                [&](const auto&, const auto&) { return text; })
        .copySymbolicHotKeys();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input = fuzz::textOf(data, size);
    for (const Desktop& desktop : desktops) {
        if (!input.starts_with(desktop.letter)) {
            continue;
        }
        const auto list = listOf(desktop, std::string(input.substr(1)));
        fuzz::check(list.status == noErr || list.entries.empty(), "a failure lists nothing");
        for (const SystemShortcuts::Entry& entry : list.entries) {
            fuzz::check(entry.enabled && entry.keyCode && entry.modifiers, "nothing is missing");
            fuzz::check(evdevKeyCode(static_cast<std::uint32_t>(*entry.keyCode)).has_value(),
                        "there is such a key");
            fuzz::check((*entry.modifiers & ~0x1B00) == 0, "there are such modifiers");
        }
    }
    return 0;
}
