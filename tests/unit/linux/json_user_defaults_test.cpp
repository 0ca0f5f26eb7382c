// SPDX-License-Identifier: MIT
#include "settings_fixture.h"

#include <cmath>
#include <filesystem>
#include <gmock/gmock.h>
#include <limits>
#include <sys/stat.h>

namespace dwellkey {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using JsonUserDefaultsTest = SettingsTest;

TEST_F(JsonUserDefaultsTest, set_everyKindOfValue_isReadBackAfterARestart) {
    const std::vector<std::pair<std::string, DefaultsValue>> values = {
        {"flag", true},
        {"whole", std::numeric_limits<std::int64_t>::min()},
        {"fraction", 0.1},
        {"wholeFraction", 2.0},
        {"text", "ä \"quoted\"\n\0"s},
        {"notUtf8", "caf\xE9"s},
        {"texts", std::vector<std::string>{"a", "caf\xE9", ""}},
        {"noTexts", std::vector<std::string>{}},
        {"data", Data{R"({"command":true})"}},
        {"bytes", Data{"\xFF\0\x80"s}},
        {"noBytes", Data{}},
        {"schlüssel", std::int64_t{1}},
    };
    auto& store = open();
    for (const auto& [key, value] : values) {
        store.set(key, value);
    }
    auto& reopened = open();
    for (const auto& [key, value] : values) {
        ASSERT_NE(reopened.find(key), nullptr) << key;
        EXPECT_EQ(*reopened.find(key), value) << key;
    }
    EXPECT_THAT(text(), HasSubstr(R"("$data": "{\"command\":true}")"));
    EXPECT_THAT(log.entries, IsEmpty());
}

TEST_F(JsonUserDefaultsTest, find_numbersByHand_wholeOnesAreIntegers) {
    write(R"({"whole": 2, "fraction": 2.0, "exponent": 2e0, "large": 9223372036854775808})");
    open();
    EXPECT_EQ(number("whole"), 2);
    EXPECT_EQ(valueOf<double>("fraction"), 2.0);
    EXPECT_EQ(valueOf<double>("exponent"), 2.0);
    EXPECT_EQ(valueOf<double>("large"), 9223372036854775808.0);
}

TEST_F(JsonUserDefaultsTest, find_valuesThatFitNothing_areMissingButSurviveASave) {
    write(
        R"({"null": null, "nested": {"a": {"b": [1]}}, "mixed": ["a", 1], "otherData": {"$data": 1},
              "badData": {"$data64": "*"}, "large": 18446744073709551615, "unknown": "kept"})");
    auto& store = open();
    for (const char* key : {"null", "nested", "mixed", "otherData", "badData"}) {
        EXPECT_EQ(store.find(key), nullptr) << key;
        EXPECT_TRUE(store.contains(key)) << key;
    }
    store.set("nested", true);
    store.remove("badData");
    open();
    EXPECT_EQ(text(), R"({
    "large": 18446744073709551615,
    "mixed": [
        "a",
        1
    ],
    "nested": true,
    "null": null,
    "otherData": {
        "$data": 1
    },
    "unknown": "kept"
}
)");
}

TEST_F(JsonUserDefaultsTest, set_severalTimesInATurn_isSavedOnceAtItsEndForTheUserAlone) {
    auto& store = open();
    store.set("delay", 1.5);
    store.set("delay", 2.5);
    store.set("name", "x"s);
    store.set("gone", true);
    store.remove("gone");
    EXPECT_FALSE(fs::exists(path));
    EXPECT_EQ(valueOf<double>("delay"), 2.5);
    loop.runPosted();
    EXPECT_EQ(text(), "{\n    \"delay\": 2.5,\n    \"name\": \"x\"\n}\n");
    struct stat status {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(JsonUserDefaultsTest, set_equalValueOrBackAgain_writesNothing) {
    write(R"({"a":1})");
    auto& store = open();
    int told = 0;
    const auto subscription = store.observe("a", [&told](DefaultsChange) { ++told; });
    store.set("a", std::int64_t{1});
    store.remove("missing");
    EXPECT_EQ(told, 0);
    store.set("a", std::int64_t{2});
    store.set("a", std::int64_t{1});
    EXPECT_EQ(told, 2);
    store.synchronize();
    EXPECT_EQ(text(), R"({"a":1})"); // not even laid out anew
    store.set("a", 1.0);
    EXPECT_EQ(told, 3) << "another type is another value";
    store.synchronize();
    EXPECT_EQ(text(), "{\n    \"a\": 1.0\n}\n");
}

TEST_F(JsonUserDefaultsTest, set_whatJsonCannotHold_isLoggedAndLeavesTheValue) {
    auto& store = open();
    store.set("delay", 1.5);
    store.set("delay", std::nan(""));
    store.set("caf\xE9", true);
    EXPECT_EQ(valueOf<double>("delay"), 1.5);
    EXPECT_EQ(store.find("caf\xE9"), nullptr);
    EXPECT_THAT(log.entries, SizeIs(2));
}

TEST_F(JsonUserDefaultsTest, edit_fromOutside_tellsTheObserversOfWhatChanged) {
    write(R"({"changed":1, "removed":1, "same":1})");
    auto& store = open();
    std::string told;
    std::vector<Subscription> subscriptions;
    for (const std::string key : {"changed", "removed", "same", "added"}) {
        subscriptions.push_back(
            store.observe(key, [&told, key](DefaultsChange) { told += key + " "; }));
    }
    write(R"({"changed":2, "same":1, "added":1})");
    EXPECT_TRUE(comesToHold("added", 1));
    EXPECT_EQ(told, "changed removed added ");
    EXPECT_EQ(store.find("removed"), nullptr);
}

TEST_F(JsonUserDefaultsTest, edit_meetsOwnPendingChange_bothSurviveAndOursWins) {
    write(R"({"both":1, "theirs":1, "ours":1})");
    auto& store = open();
    write(R"({"both":2, "theirs":2, "ours":1})");
    store.set("both", std::int64_t{3});
    store.remove("ours");
    store.synchronize();
    EXPECT_EQ(text(), "{\n    \"both\": 3,\n    \"theirs\": 2\n}\n");
    EXPECT_EQ(number("theirs"), 2);
}

TEST_F(JsonUserDefaultsTest, edit_folderMadeOrReplacedLater_isNoticed) {
    open();
    write(R"({"a":1})");
    EXPECT_TRUE(comesToHold("a", 1));
    fs::rename(folder / "config/dwellkey", folder / "config/old");
    testing::writeFile(folder / "config/new/settings.json", R"({"a":2})");
    fs::rename(folder / "config/new", folder / "config/dwellkey");
    EXPECT_TRUE(comesToHold("a", 2));
    write(R"({"a":3})");
    EXPECT_TRUE(comesToHold("a", 3));
}

TEST_F(JsonUserDefaultsTest, edit_fileDisappears_valuesStayAndAreSavedAgain) {
    write(R"({"a":1, "null":null})");
    auto& store = open();
    fs::remove_all(folder / "config");
    store.set("b", std::int64_t{2});
    loop.runPosted();
    EXPECT_EQ(text(), "{\n    \"a\": 1,\n    \"b\": 2,\n    \"null\": null\n}\n");
}

TEST_F(JsonUserDefaultsTest, symbolicLink_isFollowedForReadingSavingAndEdits) {
    testing::writeFile(folder / "dotfiles/one.json", R"({"a":1})");
    testing::writeFile(folder / "dotfiles/two.json", R"({"a":5})");
    fs::create_directories(fs::path(path).parent_path());
    fs::create_symlink("../../dotfiles/one.json", path);
    auto& store = open();
    EXPECT_EQ(number("a"), 1);
    store.set("a", std::int64_t{2});
    store.synchronize();
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_THAT(testing::readFile(folder / "dotfiles/one.json"), HasSubstr("\"a\": 2"));

    testing::writeFile(folder / "dotfiles/one.json", R"({"a":3})");
    EXPECT_TRUE(comesToHold("a", 3));
    fs::remove(path);
    fs::create_symlink(folder / "dotfiles/two.json", path);
    EXPECT_TRUE(comesToHold("a", 5));
    testing::writeFile(folder / "dotfiles/two.json", R"({"a":6})");
    EXPECT_TRUE(comesToHold("a", 6));
    EXPECT_THAT(log.entries, IsEmpty());
}

} // namespace
} // namespace dwellkey
