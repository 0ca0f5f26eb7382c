// SPDX-License-Identifier: MIT
#include "settings/app_info.h"

#include "platform/fake/fake_platform.h"

#include <gtest/gtest.h>

#include <unordered_set>

namespace dwellkey {
namespace {

class AppInfoTest : public testing::Test {
protected:
    AppInfo record(const std::string& path) {
        return AppInfo(Url::fromPath(path), fake_.platform());
    }
    FakePlatform fake_;
};

TEST_F(AppInfoTest, name_isTheLastPathComponentWithoutItsSuffixes) {
    const std::pair<const char*, const char*> cases[] = {
        {"/Applications/Safari.app", "Safari"},
        {"/Applications/Safari.app/", "Safari"},
        {"/Applications/My.app.Tool.app", "My.Tool"},
        {"/Applications/.app", ""},
        {"/usr/bin/tool", "tool"},
        {"/opt/My Tool.APP", "My Tool.APP"},
        {"/usr/share/applications/firefox.desktop", "firefox"},
        {"/usr/share/applications/org.gnome.Nautilus.desktop", "org.gnome.Nautilus"},
        {"/usr/share/applications/org.app.Foo.desktop", "org.app.Foo"},
        {"/usr/share/applications/io.appflowy.AppFlowy.desktop", "io.appflowy.AppFlowy"},
        {"/usr/share/applications/a.desktop.desktop", "a.desktop"},
        {"/usr/share/applications/a.desktop.b", "a.desktop.b"},
        {"/srv/.desktop", ""},
    };
    for (const auto& [path, name] : cases) {
        EXPECT_EQ(record(path).name(), name) << path;
    }
}

TEST_F(AppInfoTest, record_takesIconAndIdentifierFromTheDesktop) {
    const Url url = Url::fromPath("/apps/foo.desktop");
    fake_.bundleReader.install(url, {"foo", "Foo"});
    fake_.workspace.icons["/apps/foo.desktop"] = Image{"foo-icon"};

    const AppInfo app(url, fake_.platform());

    EXPECT_EQ(app.url(), url);
    EXPECT_EQ(app.icon(), Image{"foo-icon"});
    EXPECT_EQ(app.bundleID(), "foo");
    EXPECT_TRUE(app.existsOnDisk);
}

TEST_F(AppInfoTest, record_ofNothingReadable_hasAnIconButNoIdentifier) {
    const AppInfo app = record("/nowhere/foo.desktop");
    EXPECT_EQ(app.bundleID(), std::nullopt);
    EXPECT_FALSE(app.icon().name.empty());
    EXPECT_TRUE(app.existsOnDisk);
}

TEST_F(AppInfoTest, equality_asksForTheSameRecordInTheSameState) {
    const AppInfo app = record("/apps/foo.desktop");
    AppInfo copy = app;
    EXPECT_EQ(copy, app);
    EXPECT_NE(record("/apps/foo.desktop"), app) << "another record of the same application";
    EXPECT_EQ((std::unordered_set<AppInfo>{app, copy}.size()), 1U);
    copy.existsOnDisk = false;
    EXPECT_NE(copy, app);
    EXPECT_EQ((std::unordered_set<AppInfo>{app, copy}.size()), 2U);
}

} // namespace
} // namespace dwellkey
