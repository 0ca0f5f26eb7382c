// SPDX-License-Identifier: MIT
#include "platform/linux/application_identity.h"

#include "desktop_fixture.h"
#include "platform/linux/display_name.h"

#include <gmock/gmock.h>

#include <map>
#include <unistd.h>

namespace dwellkey {
namespace {

using testing::writeFile;

struct ScriptedProcess {
    std::optional<std::string> executable;
    std::vector<std::string> commandLine;
    std::map<std::string, std::string, std::less<>> variables;
    std::optional<std::string> flatpakInfo;
    std::optional<std::string> controlGroups;
};

/// One process, of number 7.
class ScriptedProcesses : public ProcessReader {
public:
    ScriptedProcess seven;

    std::optional<std::string> executable(pid_t process) const override {
        return process == 7 || process == getpid() ? seven.executable : std::nullopt;
    }
    std::vector<std::string> commandLine(pid_t process) const override {
        return process == 7 ? seven.commandLine : std::vector<std::string>{};
    }
    std::optional<std::string> environmentVariable(pid_t process,
                                                   std::string_view name) const override {
        const auto found = seven.variables.find(name);
        return process == 7 && found != seven.variables.end() ? std::optional(found->second)
                                                              : std::nullopt;
    }
    std::optional<std::string> flatpakInfo(pid_t process) const override {
        return process == 7 ? seven.flatpakInfo : std::nullopt;
    }
    std::optional<std::string> controlGroups(pid_t process) const override {
        return process == 7 ? seven.controlGroups : std::nullopt;
    }
};

WindowFacts windowOf(std::string instance, std::string name) {
    WindowFacts window;
    window.classInstance = std::move(instance);
    window.className = std::move(name);
    window.process = 7;
    return window;
}

class ApplicationIdentityTest : public testing::DesktopFixture {
protected:
    void installAll(std::initializer_list<const char*> ids) {
        for (const char* id : ids) {
            install("usr/applications/" + std::string(id) + ".desktop", "");
        }
    }
    std::string identifierOf(const WindowFacts& window) const {
        return identifier_.identify(window).bundleIdentifier.value_or("none");
    }
    void scope(const std::string& unit) {
        processes_.seven.controlGroups =
            "1:cpu:/\n0::/user.slice/user@1000.service/app.slice/" + unit + "\n";
    }

    ScriptedProcesses processes_;
    DefaultFileManager fileManager_{loop_, index_, folders(), {}};
    ApplicationIdentifier identifier_{index_, fileManager_, processes_};

private:
    [[nodiscard]] BaseFolders folders() const {
        BaseFolders result;
        result.dataDirs = {scratch_ / "usr"};
        return result;
    }
};

TEST_F(ApplicationIdentityTest, each_kind_of_evidence_yields_to_the_one_before_it) {
    install("usr/applications/by-class.desktop", "StartupWMClass=Thing");
    install("usr/applications/by-program.desktop", "Exec=/opt/thing/bin");
    installAll({"thing", "org.sandboxed.App", "org.gtk.App", "scoped-app", "launched"});
    WindowFacts window = windowOf("thing", "Thing");
    window.gtkApplicationId = "org.gtk.App";
    processes_.seven.flatpakInfo = "[Application]\nname=org.sandboxed.App\n";
    processes_.seven.variables["GIO_LAUNCHED_DESKTOP_FILE"] =
        scratch_ / "usr/applications/launched.desktop";
    processes_.seven.executable = "/opt/thing/bin";
    scope(R"(app-gnome-scoped\x2dapp-1234.scope)");

    EXPECT_EQ(identifierOf(window), "by-class");
    window.className = "other";
    EXPECT_EQ(identifierOf(window), "by-class") << "other capitals in the instance";
    std::filesystem::remove(scratch_ / "usr/applications/by-class.desktop");
    loop_.runPosted();
    EXPECT_EQ(identifierOf(window), "thing");
    window.classInstance = "other";
    EXPECT_EQ(identifierOf(window), "org.sandboxed.App");
    processes_.seven.flatpakInfo.reset();
    EXPECT_EQ(identifierOf(window), "org.gtk.App");
    window.gtkApplicationId = "org.gtk.Missing";
    EXPECT_EQ(identifierOf(window), "scoped-app");
    processes_.seven.controlGroups.reset();
    EXPECT_EQ(identifierOf(window), "launched");
    processes_.seven.variables["GIO_LAUNCHED_DESKTOP_FILE_PID"] = "6";
    EXPECT_EQ(identifierOf(window), "by-program");
    processes_.seven.variables["GIO_LAUNCHED_DESKTOP_FILE_PID"] = "7";
    EXPECT_EQ(identifierOf(window), "launched");
    window.process.reset();
    EXPECT_EQ(identifierOf(window), "other");
}

TEST_F(ApplicationIdentityTest, unlisted_program_is_named_by_its_window_class) {
    processes_.seven.executable = "/opt/odd/bin/odd-program";
    const auto classed = identifier_.identify(windowOf("odd", "Odd"));
    EXPECT_EQ(classed.bundleIdentifier, "Odd");
    EXPECT_EQ(classed.bundleUrl, std::nullopt);
    EXPECT_EQ(classed.localizedName, "Odd");
    const auto classless = identifier_.identify(windowOf("", ""));
    EXPECT_EQ(classless.bundleIdentifier, std::nullopt);
    EXPECT_EQ(classless.localizedName, "odd-program");
    EXPECT_EQ(identifier_.identify({}), ApplicationIdentity{});
}

TEST_F(ApplicationIdentityTest, this_program_has_a_location_without_an_entry) {
    processes_.seven.executable = "/opt/ours/bin/ours";
    WindowFacts window = windowOf("ours", "Ours");
    EXPECT_EQ(identifier_.identify(window).bundleUrl, std::nullopt);
    window.process = getpid();
    EXPECT_EQ(identifier_.identify(window).bundleUrl, Url::fromPath("/opt/ours/bin/ours"));
}

TEST_F(ApplicationIdentityTest, program_started_in_a_terminal_does_not_pass_for_the_terminal) {
    install("usr/applications/term.desktop", "Exec=/usr/bin/term\nCategories=TerminalEmulator;");
    const std::string entry = scratch_ / "usr/applications/term.desktop";
    processes_.seven.variables = {{"GIO_LAUNCHED_DESKTOP_FILE", entry},
                                  {"BAMF_DESKTOP_FILE_HINT", entry}};
    scope("app-gnome-term-99.scope");
    processes_.seven.executable = "/home/u/tool";
    EXPECT_EQ(identifierOf(windowOf("tool", "Tool")), "Tool");
    processes_.seven.executable = "/usr/bin/term";
    EXPECT_EQ(identifierOf(windowOf("t", "T")), "term");
}

TEST_F(ApplicationIdentityTest, snap_is_believed_only_of_programs_inside_it) {
    installAll({"code_code", "code_url-handler", "other_main"});
    scope("snap.code.url-handler-0f1e2d3c-0000-1111-2222-333344445555.scope");
    processes_.seven.executable = "/home/u/tool";
    EXPECT_EQ(identifierOf(windowOf("x", "X")), "X");
    processes_.seven.executable = "/snap/code/1/bin/code";
    EXPECT_EQ(identifierOf(windowOf("x", "X")), "code_url-handler");
    processes_.seven.controlGroups.reset();
    processes_.seven.variables["SNAP_INSTANCE_NAME"] = "code";
    EXPECT_EQ(identifierOf(windowOf("x", "X")), "code_code");
    processes_.seven.variables["SNAP_INSTANCE_NAME"] = "other";
    EXPECT_EQ(identifierOf(windowOf("x", "X")), "other_main");
}

TEST_F(ApplicationIdentityTest, interpreted_program_is_known_by_its_script) {
    install("usr/applications/tool.desktop", "Exec=/usr/bin/tool");
    install("usr/applications/python.desktop", "Exec=/usr/bin/python3");
    processes_.seven.executable = "/usr/bin/python3.11";
    processes_.seven.commandLine = {"/usr/bin/python3", "-u", "/usr/bin/tool", "--x"};
    EXPECT_EQ(identifierOf(windowOf("x", "X")), "tool");
    processes_.seven.commandLine = {"/usr/bin/python3"};
    EXPECT_EQ(identifierOf(windowOf("x", "X")), "X");
}

TEST_F(ApplicationIdentityTest, launcher_outside_the_applications_folders_is_read_itself) {
    install("Desktop/mine.desktop", "");
    processes_.seven.variables["GIO_LAUNCHED_DESKTOP_FILE"] = scratch_ / "Desktop/mine.desktop";
    const auto identity = identifier_.identify(windowOf("x", "X"));
    EXPECT_EQ(identity.bundleIdentifier, "mine");
    EXPECT_EQ(identity.bundleUrl, Url::fromPath(scratch_ / "Desktop/mine.desktop"));
    processes_.seven.variables["GIO_LAUNCHED_DESKTOP_FILE"] = scratch_ / "Desktop/none.desktop";
    EXPECT_EQ(identifierOf(windowOf("x", "X")), "X");
}

TEST_F(ApplicationIdentityTest, file_manager_is_the_folder_handler_or_the_desktops_owner) {
    installProgram("bin/files");
    install("usr/applications/files-handler.desktop",
            "Exec=files %U\nNoDisplay=true\nMimeType=inode/directory;");
    install("usr/applications/files.desktop", "Exec=files --browser %U\nCategories=FileManager;");
    install("usr/applications/editor.desktop", "Exec=editor");
    EXPECT_TRUE(identifier_.identify(windowOf("files-handler", "")).isFileManager);
    EXPECT_TRUE(identifier_.identify(windowOf("files", "Files")).isFileManager);
    WindowFacts window = windowOf("editor", "Editor");
    EXPECT_FALSE(identifier_.identify(window).isFileManager);
    window.ownsDesktopWindow = true;
    EXPECT_TRUE(identifier_.identify(window).isFileManager);
}

TEST(DisplayName, is_one_bounded_line_of_valid_text) {
    EXPECT_EQ(displayName("  Text\nEditor\x7F\t\xC2\x85 "), "Text Editor");
    EXPECT_EQ(displayName("a\xE2\x80\xA8tell b\xE2\x80\xA9"
                          "c"),
              "a tell b c");
    EXPECT_EQ(displayName("Caf\xC3\xA9 \xFF\xC3"), "Caf\xC3\xA9 \xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(displayName(" \n\x01"), std::nullopt);
    EXPECT_EQ(displayName(std::string(255, 'a') + "\xC3\xA9"), std::string(255, 'a'));
    EXPECT_EQ(displayName(std::string(254, 'a') + "\xC3\xA9z"), std::string(254, 'a') + "\xC3\xA9");
}

} // namespace
} // namespace dwellkey
