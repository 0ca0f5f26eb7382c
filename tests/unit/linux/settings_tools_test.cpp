// SPDX-License-Identifier: MIT
// Desktops whose shortcuts are asked for with tools of theirs: the real ones, on private settings.
#include "system_shortcuts_fixture.h"

#include <chrono>

namespace dwellkey {
namespace {

using namespace std::chrono_literals;
using testing::command;
using ::testing::Contains;
using testing::control;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using testing::option;
using ::testing::Pair;
using testing::shift;
using ::testing::UnorderedElementsAre;

ChildLimits within(std::chrono::milliseconds time, std::size_t maximumBytes = 1000) {
    return {std::chrono::steady_clock::now() + time, maximumBytes};
}

std::string causeOf(const std::variant<std::string, ChildProblem>& output) {
    const auto* problem = std::get_if<ChildProblem>(&output);
    return problem == nullptr ? "none" : problem->cause;
}

TEST(ChildOutput, all_that_is_printed_is_returned) {
    EXPECT_EQ(std::get<std::string>(outputOf({"printf", "a\nb"}, within(10s))), "a\nb");
    EXPECT_EQ(std::get<std::string>(outputOf({"sh", "-c", "cat; echo x >&2"}, within(10s))), "")
        << "no input, errors apart";
}

TEST(ChildOutput, bad_ends_are_problems_with_their_cause) {
    EXPECT_EQ(causeOf(outputOf({"/missing/tool"}, within(10s))),
              "/missing/tool: No such file or directory");
    EXPECT_EQ(causeOf(outputOf({"sh", "-c", "exit 3"}, within(10s))), "sh: ended with status 3");
    EXPECT_EQ(causeOf(outputOf({"sh", "-c", "kill -9 $$"}, within(10s))),
              "sh: was ended by signal 9");
    EXPECT_EQ(causeOf(outputOf({"yes"}, within(10s))), "yes: printed more than 1000 bytes");
}

TEST(ChildOutput, nothing_that_hangs_keeps_the_caller) {
    const auto started = std::chrono::steady_clock::now();
    EXPECT_EQ(causeOf(outputOf({"sleep", "60"}, within(50ms))), "sleep: took too long");
    EXPECT_EQ(causeOf(outputOf({"sh", "-c", "exec >&-; sleep 60"}, within(50ms))),
              "sh: took too long")
        << "though its output is at an end";
    const auto output = outputOf({"sh", "-c", "sleep 60 & echo done"}, within(10s));
    EXPECT_EQ(std::get<std::string>(output), "done\n") << "though its child keeps the output open";
    EXPECT_LT(std::chrono::steady_clock::now() - started, 10s);
}

class SettingsToolsTest : public testing::SystemShortcutsFixture {
protected:
    SettingsToolsTest() {
        run_ = [this](const CommandWords& words, const ChildLimits& limits) {
            CommandWords all = {"env",
                                "HOME=" + scratch_.path().string(),
                                "XDG_CONFIG_HOME=" + (scratch_ / "home"),
                                "GSETTINGS_BACKEND=keyfile",
                                "GSETTINGS_SCHEMA_DIR=" + (scratch_ / "schemas"),
                                "DCONF_PROFILE=" + (scratch_ / "profile")};
            all.insert(all.end(), words.begin(), words.end());
            return outputOf(all, limits);
        };
    }

    std::string must(const CommandWords& words) {
        const auto output = run_(words, within(30s, 100000));
        EXPECT_EQ(causeOf(output), "none") << words.front();
        return std::holds_alternative<std::string>(output) ? std::get<std::string>(output) : "";
    }

    /// `keys` are the lines of a schema, `place` its "path" attribute or "".
    static std::string schema(const std::string& id, const std::string& place,
                              const std::string& keys) {
        return "<schema id=\"" + id + "\"" + place + ">" + keys + "</schema>\n";
    }
    static std::string key(const std::string& name, const std::string& type,
                           const std::string& value) {
        return "<key name=\"" + name + "\" type=\"" + type + "\"><default>" + value
               + "</default></key>";
    }
    void installSchemas(const std::string& schemas) {
        testing::writeFile(scratch_ / "schemas/test.gschema.xml",
                           "<schemalist>" + schemas + "</schemalist>");
        must({"glib-compile-schemas", "--strict", scratch_ / "schemas"});
    }
};

TEST_F(SettingsToolsTest, gnome_shortcuts_are_those_in_force) {
    variables_["XDG_CURRENT_DESKTOP"] = "ubuntu:GNOME";
    const std::string media = "org.gnome.settings-daemon.plugins.media-keys";
    const std::string folder = "/org/gnome/settings-daemon/plugins/media-keys/";
    const std::string custom = folder + "custom-keybindings/custom0/";
    installSchemas(schema("org.gnome.mutter.keybindings",
                          " path=\"/org/gnome/mutter/keybindings/\"",
                          key("switch-monitor", "as", "['&lt;Super&gt;p', 'XF86Display']"))
                   + schema(media, " path=\"" + folder + "\"",
                            key("terminal", "as", "['&lt;Primary&gt;&lt;Alt&gt;t']")
                                + key("help", "as", "['']") + key("volume-step", "i", "6")
                                + key("custom-keybindings", "as", "[]"))
                   + schema(media + ".custom-keybinding", "", key("binding", "s", "''"))
                   + schema("org.example.keybindings", " path=\"/org/example/\"",
                            key("mine", "as", "['&lt;Super&gt;q']")));
    auto found = shortcuts();
    EXPECT_THAT(found, Contains(Pair(control, 35)));
    EXPECT_THAT(found, Contains(Pair(command | option, 17)));
    EXPECT_THAT(found, Not(Contains(Pair(control, 12)))) << "not one of the desktop's";

    must({"gsettings", "set", media, "terminal", "[]"});
    must({"gsettings", "set", media, "custom-keybindings", "['" + custom + "', '/not a path']"});
    must({"gsettings", "set", media + ".custom-keybinding:" + custom, "binding", "<Control>1"});
    found = shortcuts();
    EXPECT_THAT(found, Not(Contains(Pair(command | option, 17))));
    EXPECT_THAT(found, Contains(Pair(command, 18)));
    ASSERT_EQ(log_.entries.size(), 1U) << "the path that is none";
    EXPECT_THAT(log_.entries[0].cause, HasSubstr("ended with status"));
}

TEST_F(SettingsToolsTest, cinnamon_shortcuts_of_the_user_are_found_by_name) {
    variables_["XDG_CURRENT_DESKTOP"] = "X-Cinnamon";
    const std::string general = "org.cinnamon.desktop.keybindings";
    const std::string folder = "/org/cinnamon/desktop/keybindings/";
    const std::string place = general + ".custom-keybinding:" + folder + "custom-keybindings/mine/";
    installSchemas(schema(general, " path=\"" + folder + "\"",
                          key("custom-list", "as", "['__dummy__', 'mine']"))
                   + schema(general + ".wm", " path=\"" + folder + "wm/\"",
                            key("close", "as", "['&lt;Alt&gt;F4']"))
                   + schema(general + ".custom-keybinding", "", key("binding", "as", "[]")));
    must({"gsettings", "set", place, "binding", "['<Super>e', '<Shift>F1']"});
    EXPECT_THAT(shortcuts(),
                UnorderedElementsAre(Pair(option, 118), Pair(control, 14), Pair(shift, 122)));
    EXPECT_THAT(log_.entries, ::testing::IsEmpty());
}

TEST_F(SettingsToolsTest, mate_shortcuts_of_the_user_come_from_the_database) {
    variables_["XDG_CURRENT_DESKTOP"] = "MATE";
    installSchemas(schema("org.mate.Marco.window-keybindings", " path=\"/org/mate/marco/window/\"",
                          key("close", "s", "'&lt;Alt&gt;F4'") + key("raise", "s", "'disabled'")));
    testing::writeFile(scratch_ / "profile", "user-db:user\n");
    testing::writeFile(scratch_ / "keys/mine", "[org/mate/desktop/keybindings/custom0]\n"
                                               "action='a'\nbinding='<Mod4>t'\nname='Terminal'\n");
    std::filesystem::create_directories(scratch_ / "home/dconf");
    must({"dconf", "compile", scratch_ / "home/dconf/user", scratch_ / "keys"});
    EXPECT_THAT(shortcuts(), UnorderedElementsAre(Pair(option, 118), Pair(control, 17)));
    EXPECT_THAT(log_.entries, ::testing::IsEmpty());
}

TEST_F(SettingsToolsTest, missing_schemas_and_tools_are_told) {
    variables_["XDG_CURRENT_DESKTOP"] = "MATE";
    run_ = [](const CommandWords& words, const ChildLimits&) {
        return words.front() == "dconf"
                   ? std::variant<std::string, ChildProblem>(ChildProblem{"dconf: missing"})
                   : "org.example.schema key '<Alt>F4'\norg.mate.Marco\n\n";
    };
    EXPECT_EQ(system_.copySymbolicHotKeys().status, eventInternalErr);
    EXPECT_THAT(log_.entries,
                UnorderedElementsAre(
                    ::testing::Field(&FakeErrorLog::Entry::cause, "dconf: missing"),
                    ::testing::Field(&FakeErrorLog::Entry::cause,
                                     "gsettings: there is no org.mate.Marco.global-keybindings")));
}

TEST_F(SettingsToolsTest, xfce_settings_are_read_as_its_service_writes_them) {
    variables_["XDG_CURRENT_DESKTOP"] = "XFCE";
    const std::string query = "xfconf-query --create --channel xfce4-keyboard-shortcuts ";
    const std::string file =
        scratch_ / "home/xfce4/xfconf/xfce-perchannel-xml/xfce4-keyboard-shortcuts.xml";
    // The service writes what it has when it is asked to end; the bus stays until that is there.
    must({"dbus-run-session", "--", "sh", "-ec",
          query + "--property '/commands/custom/<Primary><Alt>q' --type string --set xterm\n"
              + query + "--property /commands/custom/override --type bool --set true\n" + query
              + "--property '/xfwm4/custom/<Super>w' --type string --set close_window_key\n" + query
              + "--property /xfwm4/custom/override --type bool --set true\n"
              + "service=$(dbus-send --session --print-reply=literal "
                "--dest=org.freedesktop.DBus / "
                "org.freedesktop.DBus.GetConnectionUnixProcessID string:org.xfce.Xfconf)\n"
                "kill ${service##* }\n"
                "until [ -s '"
              + file + "' ]; do sleep 0.02; done"});
    EXPECT_THAT(shortcuts(), UnorderedElementsAre(Pair(command | option, 12), Pair(control, 13)));
}

} // namespace
} // namespace dwellkey
