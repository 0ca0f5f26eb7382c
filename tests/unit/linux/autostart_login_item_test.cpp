// SPDX-License-Identifier: MIT
#include "platform/linux/autostart_login_item.h"

#include "platform/fake/fake_localizer.h"
#include "poll_run_loop.h"
#include "scratch_folder.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace dwellkey {
namespace {

using ::testing::HasSubstr;

class AutostartLoginItemTest : public ::testing::Test {
protected:
    void install() const {
        testing::writeFile(folder / "share/applications/org.dwellkey.Dwellkey.desktop",
                           "# ours\n[Desktop Entry]\nType=Application\nName=Dwellkey\n"
                           "Name[de]=Halten\nExec=dwellkey --quiet 100%% %U\nDBusActivatable=true\n"
                           "Actions=preferences;\nNoDisplay=false\n\n"
                           "[Desktop Action preferences]\nName=Preferences\nExec=dwellkey -p\n");
    }
    LoginItemStatus statusWith(const std::string& lines) const {
        testing::writeFile(entry, "[Desktop Entry]\nExec=dwellkey\n" + lines);
        return item.status();
    }

    testing::ScratchFolder folder;
    std::string entry = folder / "config/autostart/org.dwellkey.Dwellkey.desktop";
    testing::PollRunLoop loop;
    FakeLocalizer localizer;
    mutable AutostartLoginItem item{
        {.autostartFolder = folder / "config/autostart",
         .applicationFolders = {folder / "home/applications", folder / "share/applications"},
         .currentDesktops = {"ubuntu", "GNOME"}},
        loop,
        localizer};
};

TEST_F(AutostartLoginItemTest, registerItem_installed_makesAnEntryFromOurs) {
    install();
    EXPECT_EQ(item.status(), LoginItemStatus::notRegistered);
    EXPECT_FALSE(item.registerItem().has_value());
    EXPECT_EQ(item.status(), LoginItemStatus::enabled);
    EXPECT_EQ(testing::readFile(entry),
              "[Desktop Entry]\nType=Application\nName=Dwellkey\nName[de]=Halten\n"
              "Exec=dwellkey --quiet 100%%\nX-GNOME-Autostart-enabled=true\n");
    EXPECT_FALSE(item.unregisterItem().has_value());
    EXPECT_EQ(item.status(), LoginItemStatus::notRegistered);
    EXPECT_FALSE(item.unregisterItem().has_value());
}

TEST_F(AutostartLoginItemTest, status_switchedOffInTheDesktop_requiresApprovalAndStaysOff) {
    install();
    for (const std::string lines :
         {"Hidden=true\n", "X-GNOME-Autostart-enabled=false\n", "OnlyShowIn=KDE;XFCE;\n",
          "NotShowIn=GNOME;\n", "NotShowIn=ubuntu\n"}) {
        EXPECT_EQ(statusWith(lines), LoginItemStatus::requiresApproval) << lines;
        const auto error = item.registerItem();
        ASSERT_TRUE(error.has_value()) << lines;
        EXPECT_THAT(error->localizedDescription, HasSubstr(entry));
        EXPECT_THAT(testing::readFile(entry), HasSubstr(lines));
    }
    for (const std::string lines :
         {"Hidden=false\n", "X-GNOME-Autostart-enabled=true\n", "OnlyShowIn=KDE;GNOME;\n",
          "NotShowIn=KDE;\n", "[Other]\nHidden=true\n", "#Hidden=true\n"}) {
        EXPECT_EQ(statusWith(lines), LoginItemStatus::enabled) << lines;
        EXPECT_FALSE(item.registerItem().has_value());
        EXPECT_THAT(testing::readFile(entry), HasSubstr(lines)) << "the user's own lines stay";
    }
}

TEST_F(AutostartLoginItemTest, registerItem_notInstalled_isNotFoundAndAnError) {
    EXPECT_EQ(statusWith(""), LoginItemStatus::notFound);
    EXPECT_TRUE(item.registerItem().has_value());
    install();
    EXPECT_EQ(item.status(), LoginItemStatus::enabled);
    testing::writeFile(folder / "home/applications/org.dwellkey.Dwellkey.desktop",
                       "[Desktop Entry]\nHidden=true\n");
    EXPECT_EQ(item.status(), LoginItemStatus::notFound) << "the user deleted it from the menu";
}

TEST_F(AutostartLoginItemTest, registerItem_cannotWriteOrRemove_saysWhy) {
    install();
    testing::writeFile(folder / "config", "a file where the folder should be");
    auto error = item.registerItem();
    ASSERT_TRUE(error.has_value());
    EXPECT_THAT(error->localizedDescription, HasSubstr(entry + "\" cannot be written: Not a dir"));
    EXPECT_EQ(item.status(), LoginItemStatus::notRegistered);

    std::filesystem::remove(folder / "config");
    std::filesystem::create_directories(entry);
    error = item.unregisterItem();
    ASSERT_TRUE(error.has_value());
    EXPECT_THAT(error->localizedDescription, HasSubstr("cannot be removed: "));
}

TEST_F(AutostartLoginItemTest, observe_entryMadeChangedOrRemovedByOthers_isToldEachTime) {
    int changes = 0;
    Subscription subscription = item.observe([&] { ++changes; });
    const auto toldAfter = [&](const std::function<void()>& change) {
        const int before = changes;
        change();
        return loop.runUntil([&] { return changes > before; });
    };
    const auto entryFile = std::filesystem::path(entry);
    EXPECT_TRUE(toldAfter([&] { testing::writeFile(entry, "[Desktop Entry]\n"); }));
    EXPECT_TRUE(toldAfter([&] { testing::writeFile(entry, "[Desktop Entry]\nHidden=true\n"); }));
    EXPECT_TRUE(toldAfter([&] { std::filesystem::remove(entryFile); }));
    subscription.cancel();
    EXPECT_EQ(loop.watchCount(), 0U);
}

TEST_F(AutostartLoginItemTest, from_environment_namesTheUsersFolders) {
    const auto places = AutostartPlaces::from([](std::string_view name) {
        return name == "HOME"                  ? std::optional<std::string>("/home/u")
               : name == "XDG_CURRENT_DESKTOP" ? std::optional<std::string>("ubuntu:GNOME")
                                               : std::nullopt;
    });
    EXPECT_EQ(places.autostartFolder, "/home/u/.config/autostart");
    EXPECT_EQ(places.applicationFolders.front(), "/home/u/.local/share/applications");
    EXPECT_EQ(places.currentDesktops, (std::vector<std::string>{"ubuntu", "GNOME"}));
}

} // namespace
} // namespace dwellkey
