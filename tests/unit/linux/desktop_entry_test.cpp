// SPDX-License-Identifier: MIT
#include "platform/linux/desktop_entry.h"

#include "platform/linux/exec_command.h"
#include "scratch_folder.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <map>

namespace dwellkey {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::ScratchFolder;
using testing::writeFile;

Environment environmentOf(std::map<std::string, std::string, std::less<>> variables) {
    return [variables = std::move(variables)](std::string_view name) {
        const auto found = variables.find(name);
        return found == variables.end() ? std::nullopt : std::optional(found->second);
    };
}

DesktopEntry parsed(const std::string& text, const LocaleNames& locales = {}) {
    auto result = parseDesktopEntry(text, locales);
    if (const auto* problem = std::get_if<DesktopEntryProblem>(&result)) {
        ADD_FAILURE() << problem->cause;
        return {};
    }
    return std::get<DesktopEntry>(result);
}

std::string problemOf(const std::string& text) {
    const auto result = parseDesktopEntry(text, {});
    const auto* problem = std::get_if<DesktopEntryProblem>(&result);
    return problem == nullptr ? "" : problem->cause;
}

const std::string header = "[Desktop Entry]\nType=Application\n";

TEST(DesktopEntryParser, reads_what_real_entries_contain) {
    const DesktopEntry entry = parsed("\xEF\xBB\xBF# a comment = no key\n\n"
                                      "[Desktop Entry]\r\n"
                                      "Type = Application\r\n"
                                      "Name=Text\\sEditor\\\\2\n"
                                      "Icon=accessories-text-editor\n"
                                      "Exec=\"/opt/a b/edit\" %U\n"
                                      "StartupWMClass=Editor\n"
                                      "MimeType=text/plain;text/x\\;y;;\n"
                                      "NoDisplay=true\n"
                                      "Actions=new;\n"
                                      "[Desktop Action new]\n"
                                      "Name=New Window\nExec=other\n");
    EXPECT_EQ(entry.name, "Text Editor\\2");
    EXPECT_EQ(entry.icon, "accessories-text-editor");
    EXPECT_EQ(entry.startupWmClass, "Editor");
    EXPECT_THAT(entry.mimeTypes, ElementsAre("text/plain", "text/x;y"));
    EXPECT_TRUE(entry.noDisplay);
    EXPECT_FALSE(entry.hidden);
    EXPECT_EQ(programOf(entry)->name, "/opt/a b/edit");
}

TEST(DesktopEntryParser, name_follows_the_users_locale_from_specific_to_general) {
    const std::string text = header
                             + "Name=Files\nName[sr]=sr\nName[sr@latin]=sr@latin\n"
                               "Name[de]=Dateien\nName[de_AT.UTF-8]=Ordner\nName[fr]=\n";
    const auto nameIn = [&](std::map<std::string, std::string, std::less<>> variables) {
        return parsed(text, LocaleNames::from(environmentOf(std::move(variables)))).name;
    };
    EXPECT_EQ(nameIn({{"LANG", "de_AT.UTF-8"}}), "Ordner");
    EXPECT_EQ(nameIn({{"LANG", "de_DE.UTF-8@euro"}}), "Dateien");
    EXPECT_EQ(nameIn({{"LANG", "sr_RS.UTF-8@latin"}}), "sr@latin");
    EXPECT_EQ(nameIn({{"LANG", "sr_RS"}}), "sr");
    EXPECT_EQ(nameIn({{"LANG", "ja_JP.UTF-8"}}), "Files");
    EXPECT_EQ(nameIn({{"LANG", "de_DE"}, {"LC_MESSAGES", "sr_RS"}}), "sr");
    EXPECT_EQ(nameIn({{"LC_ALL", "de_DE"}, {"LC_MESSAGES", "sr_RS"}}), "Dateien");
    EXPECT_EQ(nameIn({{"LANG", "en_US.UTF-8"}, {"LANGUAGE", "pt:de:sr"}}), "Dateien");
    EXPECT_EQ(nameIn({{"LANG", "C.UTF-8"}, {"LANGUAGE", "de"}}), "Files");
}

TEST(DesktopEntryParser, damaged_entry_is_refused_with_its_cause) {
    EXPECT_THAT(problemOf(""), HasSubstr("no group"));
    EXPECT_THAT(problemOf("Name=x\n"), HasSubstr("line 1: a key before the first group"));
    EXPECT_THAT(problemOf("[Other]\nName=x\n"), HasSubstr("first group"));
    EXPECT_THAT(problemOf(header + "Name=x\n[torn\n"), HasSubstr("line 4"));
    EXPECT_THAT(problemOf(header + "Name=x\nno pair\n"), HasSubstr("line 4"));
    EXPECT_THAT(problemOf(header + "Name[de=x\n"), HasSubstr("line 3"));
    EXPECT_THAT(problemOf(header + "Icon=x\n"), HasSubstr("no Name"));
    EXPECT_THAT(problemOf("[Desktop Entry]\nType=Link\nName=x\n"), HasSubstr("'Link'"));
    EXPECT_THAT(problemOf(header + std::string("Name=a\0b\n", 9)), HasSubstr("not a text"));
}

TEST(DesktopEntryParser, hidden_entry_needs_nothing_else) {
    EXPECT_TRUE(parsed("[Desktop Entry]\nHidden=true\n").hidden);
}

TEST(DesktopEntryFile, only_bounded_regular_files_are_read) {
    const ScratchFolder folder;
    const auto causeOf = [](const std::string& path) {
        const auto result = readDesktopEntry(path, {});
        const auto* problem = std::get_if<DesktopEntryProblem>(&result);
        return problem == nullptr ? "" : problem->cause;
    };
    const std::string text = header + "Name=x\n#";
    const std::size_t bound = 1048576;
    writeFile(folder / "fits.desktop", text + std::string(bound - text.size(), '-'));
    writeFile(folder / "large.desktop", text + std::string(bound - text.size() + 1, '-'));
    ASSERT_EQ(mkfifo((folder / "pipe.desktop").c_str(), 0600), 0);
    EXPECT_EQ(causeOf(folder / "fits.desktop"), "");
    EXPECT_THAT(causeOf(folder / "large.desktop"), HasSubstr("larger than 1048576"));
    EXPECT_THAT(causeOf(folder / "pipe.desktop"), HasSubstr("not a regular file"));
    EXPECT_THAT(causeOf(folder / "none.desktop"), HasSubstr("No such file"));
}

CommandWords words(std::string_view exec) {
    auto result = parseExec(exec);
    if (const auto* problem = std::get_if<ExecProblem>(&result)) {
        return {"problem: " + problem->cause};
    }
    return std::get<CommandWords>(result);
}

TEST(Exec, quoting_and_field_codes_are_resolved) {
    EXPECT_THAT(words(R"(foo "a b" "say \"hi\" \$5 \x" '%%' %U)"),
                ElementsAre("foo", "a b", R"(say "hi" $5 \x)", "%"));
    EXPECT_THAT(words(R"(foo --file=%f 100%% %i -c %c "" %)"),
                ElementsAre("foo", "--file=", "100%", "-c", ""));
    EXPECT_THAT(words(R"(wine C:\\win\\start.exe a\ b)"),
                ElementsAre("wine", R"(C:\win\start.exe)", "a b"));
    EXPECT_THAT(words("foo \"a"), ElementsAre(HasSubstr("without its pair")));
    EXPECT_THAT(words(" %U "), ElementsAre(HasSubstr("no program")));
    EXPECT_THAT(words("\"\" foo"), ElementsAre(HasSubstr("no program")));
}

TEST(Exec, program_is_found_behind_its_wrappers) {
    const auto program = [](std::string_view exec) {
        const auto found = programOf(words(exec));
        return found ? found->name + (found->hasArguments ? " ..." : "") : "none";
    };
    EXPECT_EQ(program("mousepad %U"), "mousepad");
    EXPECT_EQ(program("mousepad --preferences"), "mousepad ...");
    EXPECT_EQ(program("env A=1 -u B GDK_BACKEND=x11 /usr/bin/foo %f"), "/usr/bin/foo");
    EXPECT_EQ(program("sh -c \"A=1 exec foo\""), "foo");
    EXPECT_EQ(program("bash -lc 'foo --x; bar'"), "foo ...");
    EXPECT_EQ(program("sh -c \"cd /opt && ./foo\""), "none");
    EXPECT_EQ(program("sh -c \"\\$HOME/foo\""), "none");
    EXPECT_EQ(program("/usr/bin/flatpak run --branch=stable --command=editor --file-forwarding "
                      "org.example.Editor @@u %U @@"),
              "editor");
    EXPECT_EQ(program("flatpak run org.example.Editor --new"), "org.example.Editor ...");
    EXPECT_EQ(program("flatpak run --command= org.example.Editor"), "none");
    EXPECT_EQ(program("snap run editor"), "editor");
    EXPECT_EQ(program("env HINT=/x.desktop /snap/bin/editor %U"), "/snap/bin/editor");
    EXPECT_EQ(program("python3.11 -u /usr/bin/foo"), "/usr/bin/foo");
    EXPECT_EQ(program("python3 -m foo"), "foo");
    EXPECT_EQ(program("python3 -c 'import foo'"), "none");
    EXPECT_EQ(program("java -Xmx1g -cp a -jar /opt/foo.jar"), "/opt/foo.jar");
    EXPECT_EQ(program("python3"), "none");
    EXPECT_EQ(program("env env env env env env env env env foo"), "none");
}

TEST(BaseFolders, defaults_and_sandbox_exports_complete_the_environment) {
    const auto bare = BaseFolders::from(environmentOf({{"HOME", "/home/u"}}));
    EXPECT_THAT(bare.applicationFolders(),
                ElementsAre("/home/u/.local/share/applications", "/usr/local/share/applications",
                            "/usr/share/applications",
                            "/home/u/.local/share/flatpak/exports/share/applications",
                            "/var/lib/flatpak/exports/share/applications",
                            "/var/lib/snapd/desktop/applications"));
    const auto set = BaseFolders::from(environmentOf(
        {{"HOME", "/home/u"},
         {"XDG_DATA_HOME", "/data/"},
         {"XDG_CONFIG_HOME", "relative"},
         {"XDG_DATA_DIRS", "/var/lib/flatpak/exports/share/:relative:/usr/share:/usr/share"}}));
    EXPECT_EQ(set.configHome, "/home/u/.config");
    EXPECT_EQ(set.dataHome, "/data");
    EXPECT_THAT(set.dataDirs, ElementsAre("/var/lib/flatpak/exports/share", "/usr/share",
                                          "/home/u/.local/share/flatpak/exports/share",
                                          "/var/lib/snapd/desktop"));
}

} // namespace
} // namespace dwellkey
