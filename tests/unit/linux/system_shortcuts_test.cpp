// SPDX-License-Identifier: MIT
// Desktops that keep their shortcuts in files, and what is said when those cannot be read.
#include "system_shortcuts_fixture.h"

namespace dwellkey {
namespace {

using testing::command;
using testing::control;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::option;
using ::testing::Pair;
using testing::shift;
using ::testing::UnorderedElementsAre;

using SystemShortcutsTest = testing::SystemShortcutsFixture;

constexpr std::string_view kdeFile = "kglobalshortcutsrc";
constexpr std::string_view xfceFile =
    "xfce4/xfconf/xfce-perchannel-xml/xfce4-keyboard-shortcuts.xml";

TEST_F(SystemShortcutsTest, kde_shortcuts_in_force_are_listed) {
    variables_["XDG_CURRENT_DESKTOP"] = "KDE";
    writeUserFile(std::string(kdeFile),
                  "[$Version]\n"
                  "update_info=kded.upd:replace-keys\n\n"
                  "[kwin]\n"
                  "Window Close=Alt+F4,Alt+F4,Close Window\n"
                  "Window Fullscreen=none,Meta+Z,Make Window Fullscreen\n"
                  R"(Walk Through Windows=Alt+Tab\tMeta+Tab,Alt+Tab,Walk Through Windows)"
                  "\n"
                  R"(Options=Ctrl+\\,,none,Options\\, and more)"
                  "\n"
                  "view_zoom_in=Meta++,Meta++,Zoom In\n"
                  "Kill Window=,,Kill Window\n"
                  "_k_friendly_name=A\n\n"
                  "[services][org.kde.konsole.desktop]\n"
                  "_launch=Ctrl+Alt+T\n\n"
                  "[services][org.kde.dolphin.desktop]\n"
                  "_launch=Meta+E\n");
    EXPECT_THAT(shortcuts(),
                UnorderedElementsAre(Pair(option, 118), Pair(option, 48), Pair(control, 48),
                                     Pair(command, 43), Pair(control | shift, 24),
                                     Pair(command | option, 17), Pair(control, 14)));
}

TEST_F(SystemShortcutsTest, kde_actions_of_the_user_overwrite_those_of_the_system) {
    variables_["XDG_CURRENT_DESKTOP"] = "KDE";
    writeSystemFile(std::string(kdeFile), "[kwin]\nClose=Alt+F4,,\nMaximize=Meta+PgUp,,\n");
    writeUserFile(std::string(kdeFile), "[kwin]\nClose=none,Alt+F4,\nline without a meaning\n");
    EXPECT_THAT(shortcuts(), ElementsAre(Pair(control, 116)));
}

std::string xfceChannel(const std::string& commands, const std::string& windowManager) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-keyboard-shortcuts" version="1.0">
  <property name="commands" type="empty">)"
           + commands + R"(</property>
  <property name="xfwm4" type="empty">)"
           + windowManager + R"(</property>
  <property name="providers" type="array"><value type="string" value="xfwm4"/></property>
</channel>)";
}

TEST_F(SystemShortcutsTest, xfce_defaults_count_where_nothing_overrides_them) {
    variables_["XDG_CURRENT_DESKTOP"] = "XFCE";
    const std::string defaults = R"(<property name="default" type="empty">
        <property name="&lt;Primary&gt;&lt;Alt&gt;t" type="string" value="xfce4-terminal">
          <property name="startup-notify" type="bool" value="true"/>
        </property>
      </property>)";
    const std::string windowManager = R"(<property name="default" type="empty">
        <property name="&lt;Alt&gt;F4" type="string" value="close_window_key"/>
        <property name="Escape" type="string" value="cancel_key"/>
      </property>)";
    const std::string custom = R"(<property name="custom" type="empty">
        <property name="&lt;Super&gt;w" type="string" value="firefox"/>
        <property name="&lt;Super&gt;x" type="empty"/>
        <property name="override" type="bool" value="true"/>
      </property>)";
    writeSystemFile(std::string(xfceFile), xfceChannel(defaults, windowManager));
    EXPECT_THAT(shortcuts(), UnorderedElementsAre(Pair(command | option, 17), Pair(option, 118)));
    writeUserFile(std::string(xfceFile), xfceChannel(custom, ""));
    EXPECT_THAT(shortcuts(), UnorderedElementsAre(Pair(control, 13), Pair(option, 118)))
        << "custom commands replace the default ones, not those of the window manager";
}

std::string openboxFile(const std::string& bindings) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <keyboard><chainQuitKey>C-g</chainQuitKey>)"
           + bindings + R"(</keyboard>
  <mouse><context name="Frame"><mousebind button="A-Left" action="Press"/></context></mouse>
</openbox_config>)";
}

TEST_F(SystemShortcutsTest, openbox_bindings_count_by_their_first_combination) {
    writeUserFile("openbox/rc.xml", openboxFile(R"(
        <keybind key="A-F4"><action name="Close"/></keybind>
        <keybind key="W-e C-A-e"><action name="Execute"/></keybind>
        <keybind key="C-x"><keybind key="C-c"><action name="Exit"/></keybind></keybind>
        <keybind key="W-u"/>
        <keybind key="W-Print"><action name="Execute"/></keybind>)"));
    EXPECT_THAT(shortcuts(), ElementsAre(Pair(option, 118), Pair(control, 14),
                                         Pair(command | option, 14), Pair(command, 7)));
}

TEST_F(SystemShortcutsTest, openbox_is_read_as_the_session_starts_it) {
    const auto binding = [](const std::string& key) {
        return openboxFile(R"(<keybind key=")" + key + R"("><action name="Close"/></keybind>)");
    };
    writeSystemFile("openbox/rc.xml", binding("A-a"));
    writeSystemFile("openbox/LXDE/rc.xml", binding("A-b"));
    EXPECT_THAT(shortcuts(), ElementsAre(Pair(option, 0)));
    writeUserFile("openbox/rc.xml", binding("A-c"));
    EXPECT_THAT(shortcuts(), ElementsAre(Pair(option, 8))) << "read afresh";
    variables_["XDG_CURRENT_DESKTOP"] = "LXDE";
    EXPECT_THAT(shortcuts(), ElementsAre(Pair(option, 11)));
    variables_["XDG_CURRENT_DESKTOP"] = "LXQt";
    EXPECT_THAT(shortcuts(), ElementsAre(Pair(option, 8)));
    writeUserFile("openbox/lxqt-rc.xml", binding("A-d"));
    EXPECT_THAT(shortcuts(), ElementsAre(Pair(option, 2)));
}

TEST_F(SystemShortcutsTest, unknown_desktop_has_no_shortcuts_and_is_named_once) {
    writeUserFile("openbox/rc.xml",
                  openboxFile(R"(<keybind key="A-F4"><action name="Close"/></keybind>)"));
    variables_["XDG_CURRENT_DESKTOP"] = "i3";
    EXPECT_THAT(shortcuts(), IsEmpty());
    EXPECT_THAT(shortcuts(), IsEmpty());
    ASSERT_EQ(log_.entries.size(), 1U);
    EXPECT_EQ(log_.entries[0].cause, R"(the desktop "i3" is not known)");
    variables_["XDG_CURRENT_DESKTOP"] = "";
    variables_["DESKTOP_SESSION"] = "/usr/share/xsessions/openbox";
    EXPECT_THAT(shortcuts(), ElementsAre(Pair(option, 118)));
}

TEST_F(SystemShortcutsTest, unreadable_settings_are_logged_until_they_can_be_read_again) {
    for (const auto& [desktop, file] :
         std::map<std::string, std::string>{{"KDE", std::string(kdeFile)},
                                            {"XFCE", std::string(xfceFile)},
                                            {"Openbox", "openbox/rc.xml"}}) {
        variables_["XDG_CURRENT_DESKTOP"] = desktop;
        log_.entries.clear();
        const auto expectUnread = [&, name = desktop] {
            const auto list = system_.copySymbolicHotKeys();
            EXPECT_EQ(list.status, eventInternalErr) << name;
            EXPECT_THAT(list.entries, IsEmpty()) << name;
        };
        expectUnread();
        expectUnread();
        EXPECT_EQ(log_.entries.size(), 1U) << desktop << " is missing";

        std::filesystem::create_directories(scratch_ / ("home/" + file)); // not a file
        expectUnread();
        EXPECT_EQ(log_.entries.size(), 2U) << desktop << " for another reason";

        std::filesystem::remove(scratch_ / ("home/" + file));
        writeUserFile(file, "<valid/>");
        EXPECT_THAT(shortcuts(), IsEmpty());
        std::filesystem::remove(scratch_ / ("home/" + file));
        expectUnread();
        EXPECT_EQ(log_.entries.size(), 3U) << desktop << " is missing again";
    }
}

TEST_F(SystemShortcutsTest, damaged_file_does_not_hide_the_other_ones) {
    variables_["XDG_CURRENT_DESKTOP"] = "XFCE:KDE";
    writeUserFile(std::string(xfceFile), R"(<channel><property name="commands">)");
    writeUserFile(std::string(kdeFile), "[kwin]\nClose=Alt+F4,,\n");
    EXPECT_THAT(shortcuts(), ElementsAre(Pair(option, 118)));
    ASSERT_EQ(log_.entries.size(), 1U);
    EXPECT_THAT(log_.entries[0].cause,
                ::testing::EndsWith("xfce4-keyboard-shortcuts.xml: line 1: no element found"));
}

} // namespace
} // namespace dwellkey
