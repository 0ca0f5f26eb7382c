// SPDX-License-Identifier: MIT
#include "platform/linux/process_facts.h"

#include "scratch_folder.h"

#include <gmock/gmock.h>
#include <unistd.h>

namespace dwellkey {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::ScratchFolder;
using testing::writeFile;

TEST(ProcFolderReader, reads_the_facts_of_a_process) {
    using namespace std::string_literals;
    const ScratchFolder proc;
    writeFile(proc / "7/cmdline", "/usr/bin/foo\0--bar\0"s);
    writeFile(proc / "7/environ", "PATH=/bin\0SNAP_INSTANCE_NAME=a=b\0"s);
    writeFile(proc / "7/cgroup", "0::/x.scope\n");
    writeFile(proc / "7/root/.flatpak-info", "[Application]\nname=org.example.App\n");
    std::filesystem::create_symlink("/usr/bin/foo (deleted)", proc / "7/exe");
    std::filesystem::create_directories(proc / "8/root");
    std::filesystem::create_symlink(proc / "7/root/.flatpak-info", proc / "8/root/.flatpak-info");
    const ProcFolderReader reader(proc.path());
    EXPECT_EQ(reader.executable(7), "/usr/bin/foo");
    EXPECT_THAT(reader.commandLine(7), ElementsAre("/usr/bin/foo", "--bar"));
    EXPECT_EQ(reader.environmentVariable(7, "SNAP_INSTANCE_NAME"), "a=b");
    EXPECT_EQ(reader.environmentVariable(7, "SNAP"), std::nullopt);
    EXPECT_EQ(reader.controlGroups(7), "0::/x.scope\n");
    EXPECT_EQ(flatpakApplication(reader.flatpakInfo(7).value_or("")), "org.example.App");
    EXPECT_EQ(reader.flatpakInfo(8), std::nullopt) << "a link would leave the sandbox";
    EXPECT_EQ(reader.executable(9), std::nullopt);
    EXPECT_THAT(reader.commandLine(9), IsEmpty());
}

TEST(ProcFolderReader, reads_the_running_system) {
    const ProcFolderReader reader;
    EXPECT_EQ(reader.executable(getpid()), std::filesystem::read_symlink("/proc/self/exe"));
    EXPECT_FALSE(reader.commandLine(getpid()).empty());
    EXPECT_FALSE(reader.controlGroups(getpid()).value_or("").empty());
}

TEST(SessionUnit, names_the_application) {
    const auto ids = [](const std::string& unit) {
        return sessionUnitApplications("0::/user.slice/user@1000.service/app.slice/" + unit);
    };
    EXPECT_THAT(ids("app-org.kde.kate-1234.scope"), ElementsAre("org.kde.kate"));
    EXPECT_THAT(ids(R"(app-gnome-google\x2dchrome-1234.scope)"),
                ElementsAre("google-chrome", "gnome-google-chrome"));
    EXPECT_THAT(ids("app-org.kde.kate@0f1e.service"), ElementsAre("org.kde.kate"));
    EXPECT_THAT(ids("app-gnome-files@autostart.service"), ElementsAre("files", "gnome-files"));
    EXPECT_THAT(ids("app-foo-1.scope/worker"), ElementsAre("foo"));
    EXPECT_THAT(ids("app-gnome-term.slice/vte-spawn-0f1e.scope"), IsEmpty());
    EXPECT_THAT(ids("app-1.scope"), IsEmpty());
    EXPECT_THAT(ids(R"(app-a\x2-1.scope)"), ElementsAre(R"(a\x2)"));
    EXPECT_THAT(sessionUnitApplications(""), IsEmpty());
}

TEST(SnapUnit, names_the_snap_and_its_application) {
    const std::string uuid = "0f1e2d3c-0000-1111-2222-333344445555";
    const auto snap = [](const std::string& unit) { return snapApplication("0::/a/" + unit); };
    EXPECT_EQ(snap("snap.code.url-handler-" + uuid + ".scope"),
              (SnapApplication{"code", "url-handler"}));
    EXPECT_EQ(snap("snap.code.code." + uuid + ".scope"), (SnapApplication{"code", "code"}));
    EXPECT_EQ(snap("snap.cups.cupsd.service"), (SnapApplication{"cups", "cupsd"}));
    EXPECT_EQ(snap("snap.code.x.scope"), std::nullopt);
    EXPECT_EQ(snap("snap.code"), std::nullopt);
    EXPECT_EQ(snap("snap.code..service"), std::nullopt);
    EXPECT_EQ(snap("snap.service"), std::nullopt);
}

} // namespace
} // namespace dwellkey
