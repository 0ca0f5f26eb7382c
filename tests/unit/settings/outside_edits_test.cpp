// SPDX-License-Identifier: MIT
// The list of applications follows edits of the settings file while the program runs.
#include "platform/fake/fake_platform.h"
#include "settings/preferences_view_model.h"

#include <gtest/gtest.h>

namespace dwellkey {
namespace {

class EditedList : public testing::Test {
protected:
    using Texts = std::vector<std::string>;

    EditedList() { preferences.addApp(Url::fromPath("/apps/one.desktop")); }

    [[nodiscard]] Texts names() const {
        Texts names;
        for (const AppInfo& app : preferences.apps()) {
            names.push_back(app.name());
        }
        return names;
    }

    FakePlatform platform;
    AlertManager alerts;
    PreferencesViewModel preferences{platform.platform(), alerts};
};

TEST_F(EditedList, anotherList_isTakenOverAndTheFileLeftAsItWasWritten) {
    int announced = 0;
    const auto watch = preferences.objectWillChange.subscribe([&] { ++announced; });
    PreferencesViewModel deaf(platform.platform(), alerts,
                              PreferencesViewModel::OutsideEdits::ignored);
    const Texts edited{"file:///apps/two.desktop", "no url", "/apps/three.desktop"};
    platform.userDefaults.setFromOutside("appURLs", edited);
    EXPECT_EQ(names(), (Texts{"two", "three"}));
    EXPECT_EQ(*platform.userDefaults.find("appURLs"), DefaultsValue(edited));
    EXPECT_EQ(announced, 1);
    ASSERT_EQ(platform.errorLog.entries.size(), 1U) << "once, whatever the number of models";
    EXPECT_EQ(platform.errorLog.entries[0].cause, "neither an address nor a path: no url");
    EXPECT_EQ(deaf.apps().size(), 1U);
}

TEST_F(EditedList, listTakenOut_isEmpty) {
    platform.userDefaults.removeFromOutside("appURLs");
    EXPECT_TRUE(names().empty());
}

TEST_F(EditedList, whatIsNoListOfTexts_changesNothingAndIsLogged) {
    platform.userDefaults.garbleFromOutside("appURLs");
    EXPECT_EQ(names(), Texts{"one"});
    platform.userDefaults.setFromOutside("appURLs", std::string("file:///apps/two.desktop"));
    EXPECT_EQ(names(), Texts{"one"});
    EXPECT_EQ(platform.errorLog.entries.size(), 2U);
}

TEST_F(EditedList, editsOfAnotherInstance_areNotTakenOver) {
    PreferencesViewModel other(platform.platform(), alerts);
    other.addApp(Url::fromPath("/apps/two.desktop"));
    EXPECT_EQ(names(), Texts{"one"});
}

} // namespace
} // namespace dwellkey
