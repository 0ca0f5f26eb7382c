// SPDX-License-Identifier: MIT
// The list of applications: what is stored when, and what comes back.
#include "settings/preferences_view_model.h"

#include "platform/fake/fake_platform.h"

#include <gtest/gtest.h>

namespace dwellkey {
namespace {

using Strings = std::vector<std::string>;

class ApplicationList : public testing::Test {
protected:
    PreferencesViewModel make() { return PreferencesViewModel(fake_.platform(), alerts_); }
    void store(Strings urls) { fake_.userDefaults.setFromOutside("appURLs", std::move(urls)); }
    [[nodiscard]] std::optional<Strings> stored() const {
        const DefaultsValue* value = fake_.userDefaults.find("appURLs");
        return value != nullptr ? std::optional(std::get<Strings>(*value)) : std::nullopt;
    }
    [[nodiscard]] std::size_t writes() const { return fake_.userDefaults.writeCount("appURLs"); }
    static Strings urlsOf(const PreferencesViewModel& preferences) {
        Strings urls;
        for (const AppInfo& app : preferences.apps()) {
            urls.push_back(app.url().absoluteString());
        }
        return urls;
    }

    const Url firefox_ = Url::fromPath("/apps/firefox.desktop");
    const Url gimp_ = Url::fromPath("/apps/gimp.desktop");
    FakePlatform fake_;
    AlertManager alerts_;
};

TEST_F(ApplicationList, freshInstall_isEmptyAndStoresNothing) {
    const auto preferences = make();
    EXPECT_TRUE(preferences.apps().empty());
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(ApplicationList, loading_keepsOrderAndDuplicates_takesPathsAndTellsWhatItDrops) {
    store({"/apps/b.desktop", "~/no.desktop", "file:///apps/a.desktop", "file:///apps/b.desktop"});
    const auto preferences = make();
    const Strings good{"file:///apps/b.desktop", "file:///apps/a.desktop",
                       "file:///apps/b.desktop"};
    EXPECT_EQ(urlsOf(preferences), good);
    EXPECT_EQ(stored(), good);
    EXPECT_EQ(writes(), 6U) << "once for each application loaded, once for each refreshed";
    ASSERT_EQ(fake_.errorLog.entries.size(), 1U);
    EXPECT_EQ(fake_.errorLog.entries[0].cause, "neither an address nor a path: ~/no.desktop");
}

TEST_F(ApplicationList, loading_listWithoutAnyAddress_isToldOnceThoughTwoModelsLoad) {
    store({"no url"});
    EXPECT_TRUE(make().apps().empty());
    EXPECT_TRUE(make().apps().empty());
    EXPECT_EQ(fake_.errorLog.entries.size(), 1U);
}

TEST_F(ApplicationList, loading_whatIsNoListOfTexts_leavesItAlone) {
    for (const DefaultsValue& wrong :
         {DefaultsValue("file:///apps/a"), DefaultsValue(Strings{}), DefaultsValue(true)}) {
        fake_.userDefaults.setFromOutside("appURLs", wrong);
        const auto preferences = make();
        EXPECT_TRUE(preferences.apps().empty());
        EXPECT_EQ(*fake_.userDefaults.find("appURLs"), wrong);
        EXPECT_EQ(writes(), 0U);
    }
}

TEST_F(ApplicationList, addApp_appendsAndStoresUnlessTheUrlIsListed) {
    auto preferences = make();
    preferences.addApp(firefox_);
    preferences.addApp(gimp_);
    preferences.addApp(firefox_);
    EXPECT_EQ(stored(), (Strings{firefox_.absoluteString(), gimp_.absoluteString()}));
    EXPECT_EQ(writes(), 2U) << "a duplicate changes nothing";

    const auto sameFile = Url::parse("file://localhost/apps/firefox.desktop");
    preferences.addApp(*sameFile);
    EXPECT_EQ(preferences.apps().size(), 3U) << "URLs are compared as they stand";
}

TEST_F(ApplicationList, assignment_storesEvenAnEmptyList) {
    auto preferences = make();
    preferences.addApp(firefox_);
    preferences.setApps({});
    EXPECT_EQ(stored(), Strings{});
    preferences.setApps({});
    EXPECT_EQ(writes(), 3U) << "every assignment stores";
}

TEST_F(ApplicationList, assignment_announcesBeforeTheListChanges) {
    auto preferences = make();
    std::vector<std::size_t> sizes;
    const auto observation =
        preferences.objectWillChange.subscribe([&] { sizes.push_back(preferences.apps().size()); });
    preferences.addApp(firefox_);
    preferences.setApps({});
    EXPECT_EQ(sizes, (std::vector<std::size_t>{0, 1}));
}

TEST_F(ApplicationList, refresh_marksWhatIsGoneAndKeepsItListed) {
    fake_.bundleReader.install(firefox_, {"firefox", "Firefox"});
    fake_.bundleReader.install(gimp_, {"gimp", "GIMP"});
    auto preferences = make();
    preferences.addApp(firefox_);
    preferences.addApp(gimp_);
    const std::size_t before = writes();

    fake_.bundleReader.uninstall(firefox_);
    preferences.refreshAppsOnDisk();

    ASSERT_EQ(preferences.apps().size(), 2U);
    EXPECT_FALSE(preferences.apps()[0].existsOnDisk);
    EXPECT_TRUE(preferences.apps()[1].existsOnDisk);
    EXPECT_EQ(writes() - before, 2U);
    fake_.workspace.launchInFront("firefox");
    EXPECT_FALSE(preferences.isFrontmostAppGuarded()) << "still excluded by the list";

    fake_.bundleReader.install(firefox_, {"firefox", "Firefox"});
    preferences.refreshAppsOnDisk();
    EXPECT_TRUE(preferences.apps()[0].existsOnDisk);
}

TEST_F(ApplicationList, refresh_escapedUrl_looksForTheFileItself) {
    const Url url = Url::fromPath("/apps/my tool.desktop");
    fake_.bundleReader.install(url, {"my-tool", std::nullopt});
    store({url.absoluteString()});
    EXPECT_TRUE(make().apps().front().existsOnDisk);
}

TEST_F(ApplicationList, twoModels_haveEachTheirOwnListOfOneStore) {
    auto first = make();
    first.addApp(firefox_);
    auto second = make();
    first.addApp(gimp_);
    EXPECT_EQ(second.apps().size(), 1U);
    EXPECT_EQ(make().apps().size(), 2U);
}

TEST_F(ApplicationList, indexOutsideTheList_endsTheProcess) {
    auto preferences = make();
    EXPECT_DEATH(preferences.setExistsOnDisk(0, true), "index");
}

} // namespace
} // namespace dwellkey
