// SPDX-License-Identifier: MIT
#include "platform/linux/desktop_entry_index.h"

#include "desktop_fixture.h"

#include <gmock/gmock.h>

#include <functional>

namespace dwellkey {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::writeFile;

std::string idOf(const InstalledApplication* application) {
    return application == nullptr ? "none" : application->id;
}

using DesktopEntryIndexTest = testing::DesktopFixture;

TEST_F(DesktopEntryIndexTest, earlier_folder_hides_the_same_id_behind_it) {
    install("home/applications/editor.desktop", "StartupWMClass=Home");
    install("usr/applications/editor.desktop", "StartupWMClass=Usr");
    writeFile(scratch_ / "home/applications/gone.desktop", "[Desktop Entry]\nHidden=true\n");
    install("usr/applications/gone.desktop", "");
    writeFile(scratch_ / "home/applications/torn.desktop", "[Desktop Ent");
    install("usr/applications/torn.desktop", "NoDisplay=true");
    EXPECT_EQ(index_.byId("editor")->entry.startupWmClass, "Home");
    EXPECT_EQ(index_.byId("gone"), nullptr);
    EXPECT_EQ(index_.byId("torn")->path, scratch_ / "usr/applications/torn.desktop");
    ASSERT_EQ(index_.skipped().size(), 1U);
    EXPECT_THAT(index_.skipped()[0].cause, HasSubstr("home/applications/torn.desktop: line 1"));
}

TEST_F(DesktopEntryIndexTest, subfolders_and_links_are_followed_and_loops_survived) {
    namespace fs = std::filesystem;
    install("usr/applications/kde/foo.desktop", "");
    install("elsewhere/real.desktop", "");
    fs::create_symlink(scratch_ / "elsewhere/real.desktop",
                       scratch_ / "usr/applications/linked.desktop");
    fs::create_symlink("missing.desktop", scratch_ / "usr/applications/dangling.desktop");
    fs::create_symlink("self.desktop", scratch_ / "usr/applications/self.desktop");
    fs::create_symlink("..", scratch_ / "usr/applications/kde/up");
    EXPECT_EQ(index_.byId("kde-foo")->path, scratch_ / "usr/applications/kde/foo.desktop");
    EXPECT_EQ(index_.byId("linked")->path, scratch_ / "usr/applications/linked.desktop");
    EXPECT_EQ(index_.applications().size(), 2U);
    EXPECT_EQ(index_.skipped().size(), 2U);
}

TEST_F(DesktopEntryIndexTest, folders_that_lead_too_far_are_left_out_and_told) {
    namespace fs = std::filesystem;
    for (int i = 0; i < 600; ++i) {
        fs::create_directories(scratch_ / ("elsewhere/" + std::to_string(i)));
    }
    install("usr/applications/z/1/2/3/4/5/6/7/near.desktop", "");
    install("usr/applications/z/1/2/3/4/5/6/7/8/far.desktop", "");
    fs::create_directory_symlink(scratch_ / "elsewhere", scratch_ / "usr/applications/a");
    install("home/applications/whole.desktop", "");
    EXPECT_NE(index_.byId("z-1-2-3-4-5-6-7-near"), nullptr) << "behind a link is last";
    EXPECT_EQ(index_.byId("z-1-2-3-4-5-6-7-8-far"), nullptr);
    EXPECT_THAT(index_.leftOut(),
                ElementsAre(::testing::StartsWith(scratch_ / "usr/applications leads")));
    EXPECT_EQ(index_.watchProblem(), std::nullopt);
}

TEST_F(DesktopEntryIndexTest, startup_class_is_matched_exactly_before_other_capitals) {
    install("usr/applications/a.desktop", "StartupWMClass=term");
    install("usr/applications/b.desktop", "StartupWMClass=Term");
    install("usr/applications/browser-app.desktop", "StartupWMClass=Browser\nNoDisplay=true");
    install("usr/applications/browser.desktop", "StartupWMClass=Browser");
    EXPECT_EQ(idOf(index_.byStartupWmClass("Term")), "b");
    EXPECT_EQ(idOf(index_.byStartupWmClass("term")), "a");
    EXPECT_EQ(idOf(index_.byStartupWmClass("TERM")), "a");
    EXPECT_EQ(idOf(index_.byStartupWmClass("Browser")), "browser");
    EXPECT_EQ(idOf(index_.byStartupWmClass("other")), "none");
}

TEST_F(DesktopEntryIndexTest, window_class_is_matched_to_reversed_domain_names_when_unambiguous) {
    for (const char* id : {"firefox", "org.gnome.TextEditor", "org.gnome.Terminal", "org.a.Twin",
                           "org.b.Twin", "mousepad"}) {
        install("usr/applications/" + std::string(id) + ".desktop", "");
    }
    EXPECT_EQ(idOf(index_.byWindowClass("Firefox")), "firefox");
    EXPECT_EQ(idOf(index_.byWindowClass("Gnome-terminal")), "org.gnome.Terminal");
    EXPECT_EQ(idOf(index_.byWindowClass("gnome-text-editor")), "org.gnome.TextEditor");
    EXPECT_EQ(idOf(index_.byWindowClass("org.gnome.texteditor")), "org.gnome.TextEditor");
    EXPECT_EQ(idOf(index_.byWindowClass("Org.xfce.mousepad")), "mousepad");
    EXPECT_EQ(idOf(index_.byWindowClass("twin")), "none");
    EXPECT_EQ(idOf(index_.byWindowClass("org.c.TextEditor")), "none");
    EXPECT_EQ(idOf(index_.byWindowClass("firefox.exe")), "none");
    EXPECT_EQ(idOf(index_.byWindowClass("")), "none");
}

TEST_F(DesktopEntryIndexTest, executable_is_matched_by_its_file_before_its_name) {
    installProgram("bin/files");
    installProgram("opt/editor");
    installProgram("other/editor");
    std::filesystem::create_symlink("files", scratch_ / "bin/fm");
    install("usr/applications/files.desktop", "Exec=fm %U");
    install("usr/applications/files-preferences.desktop", "Exec=files --preferences");
    install("usr/applications/editor.desktop", "Exec=" + (scratch_ / "opt/editor"));
    install("usr/applications/twin1.desktop", "Exec=twin");
    install("usr/applications/twin2.desktop", "Exec=twin");
    install("usr/applications/python.desktop", "Exec=/usr/bin/python3\nTryExec=python3");
    EXPECT_EQ(idOf(index_.byExecutable(scratch_ / "bin/files")), "files");
    EXPECT_EQ(idOf(index_.byExecutable(scratch_ / "opt/editor")), "editor");
    EXPECT_EQ(idOf(index_.byExecutable(scratch_ / "other/editor")), "editor");
    EXPECT_EQ(idOf(index_.byExecutable("/usr/bin/twin")), "none");
    EXPECT_EQ(idOf(index_.byExecutable("/usr/bin/python3")), "none");
}

TEST_F(DesktopEntryIndexTest, nothing_is_read_or_watched_before_the_first_lookup) {
    EXPECT_EQ(loop_.watchCount(), 0U);
    install("usr/applications/late.desktop", "");
    EXPECT_EQ(idOf(index_.byId("late")), "late");
    EXPECT_EQ(loop_.watchCount(), 1U);
}

TEST_F(DesktopEntryIndexTest, changes_are_noticed_once_and_read_at_the_next_lookup) {
    install("usr/applications/kde/a.desktop", "StartupWMClass=A");
    int changes = 0;
    const auto subscription = index_.didChange.subscribe([&] { ++changes; });
    const auto idsAfter = [&](const std::function<void()>& change) {
        changes = 0;
        (void)index_.applications();
        change();
        loop_.runPosted();
        EXPECT_EQ(changes, 1);
        EXPECT_EQ(loop_.watchCount(), 0U) << "further changes need not wake us";
        std::vector<std::string> ids;
        for (const auto& application : index_.applications()) {
            ids.push_back(application.id);
        }
        return ids;
    };
    EXPECT_THAT(idsAfter([&] { install("usr/applications/b.desktop", ""); }),
                ElementsAre("b", "kde-a"));
    EXPECT_THAT(idsAfter([&] { install("usr/applications/kde/sub/c.desktop", ""); }),
                ElementsAre("b", "kde-a", "kde-sub-c"));
    EXPECT_THAT(idsAfter([&] { std::filesystem::remove_all(scratch_ / "usr/applications/kde"); }),
                ElementsAre("b"));
    EXPECT_THAT(idsAfter([&] { install("home/applications/d.desktop", ""); }),
                ElementsAre("d", "b"));
    EXPECT_THAT(idsAfter([&] {
                    std::filesystem::rename(scratch_ / "usr/applications", scratch_ / "usr/away");
                }),
                ElementsAre("d"));
    EXPECT_EQ(index_.watchProblem(), std::nullopt);
}

TEST_F(DesktopEntryIndexTest, unrelated_files_do_not_count_as_a_change) {
    install("usr/applications/a.desktop", "");
    (void)index_.applications();
    writeFile(scratch_ / "usr/applications/mimeinfo.cache", "x");
    writeFile(scratch_ / "unrelated", "x");
    loop_.runPosted();
    EXPECT_EQ(loop_.watchCount(), 1U);
}

TEST(DesktopEntryId, is_relative_to_the_applications_folder) {
    const std::vector<std::string> folders = {"/data/applications"};
    EXPECT_EQ(desktopEntryId("/data/applications/kde/applications/x.desktop", folders),
              "kde-applications-x");
    EXPECT_EQ(desktopEntryId("/else/applications/kde/x.desktop", folders), "kde-x");
    EXPECT_EQ(desktopEntryId("/home/u/Desktop/x.desktop", folders), "x");
    EXPECT_EQ(desktopEntryId("/home/u/.desktop", folders), std::nullopt);
    EXPECT_EQ(desktopEntryId("/usr/bin/x", folders), std::nullopt);
}

} // namespace
} // namespace dwellkey
