// SPDX-License-Identifier: MIT
#include "user_defaults_conformance.h"

#include "platform/user_default.h"

#include <string>
#include <utility>
#include <vector>

namespace dwellkey {
namespace {

const std::vector<std::pair<std::string, DefaultsValue>>& samples() {
    static const std::vector<std::pair<std::string, DefaultsValue>> values{
        {"flag", true},
        {"whole", std::int64_t{-9'007'199'254'740'993}},
        {"fraction", 0.1},
        {"wholeFraction", 2.0},
        {"text", std::string("quote \" line\n é")},
        {"textLikeData", std::string("eA==")},
        {"emptyText", std::string()},
        {"list", std::vector<std::string>{"file:///a", "", "b"}},
        {"emptyList", std::vector<std::string>{}},
        {"data", Data{std::string("\0\xff{\"", 4)}},
        {"emptyData", Data{}},
    };
    return values;
}

} // namespace

TEST_P(UserDefaultsConformance, values_areReadBackAtOnceAndAfterARestart) {
    for (const auto& [key, value] : samples()) {
        driver->store().set(key, value);
        ASSERT_NE(driver->store().find(key), nullptr) << key;
        EXPECT_EQ(*driver->store().find(key), value) << key;
    }
    driver->restart();
    for (const auto& [key, value] : samples()) {
        ASSERT_NE(driver->store().find(key), nullptr) << key;
        EXPECT_EQ(*driver->store().find(key), value) << key;
    }
}

TEST_P(UserDefaultsConformance, removedAndMissingKeys_areAbsentNowAndAfterARestart) {
    driver->store().set("kept", true);
    driver->store().set("removed", true);
    driver->store().remove("removed");
    driver->store().remove("never there");
    for (int start = 0; start < 2; ++start) {
        EXPECT_EQ(driver->store().find("removed"), nullptr);
        EXPECT_EQ(driver->store().find("never there"), nullptr);
        EXPECT_NE(driver->store().find("kept"), nullptr);
        driver->restart();
    }
}

TEST_P(UserDefaultsConformance, mistypedValue_readsAsTheDefault_wholeNumberAsADoubleToo) {
    driver->store().set("delay", std::string("2.5"));
    const UserDefault<double> delay(driver->store(), "delay", 2.0);
    EXPECT_EQ(delay.get(), 2.0);
    driver->store().set("delay", std::int64_t{3});
    EXPECT_EQ(delay.get(), 3.0);
    driver->store().set("delay", 0.25);
    EXPECT_EQ(delay.get(), 0.25);
}

TEST_P(UserDefaultsConformance, observers_hearEachChangeOfTheirKeyAtOnce) {
    int changes = 0;
    auto subscription = driver->store().observe("key", [&](DefaultsChange change) {
        EXPECT_EQ(change, DefaultsChange::ours);
        ++changes;
    });
    driver->store().set("other", true);
    driver->store().remove("key");
    EXPECT_EQ(changes, 0);
    driver->store().set("key", true);
    EXPECT_EQ(changes, 1);
    driver->store().set("key", true);
    EXPECT_EQ(changes, 1) << "an equal value is no change";
    driver->store().set("key", std::int64_t{1});
    EXPECT_EQ(changes, 2) << "a value of another type is";
    driver->store().remove("key");
    EXPECT_EQ(changes, 3);
    subscription.cancel();
    driver->store().set("key", true);
    EXPECT_EQ(changes, 3);
}

TEST_P(UserDefaultsConformance, observerThatWrites_seesItsOwnValue) {
    const auto subscription = driver->store().observe("key", [&](DefaultsChange) {
        if (*driver->store().find("key") == DefaultsValue(std::int64_t{1})) {
            driver->store().set("key", std::int64_t{2});
        }
    });
    driver->store().set("key", std::int64_t{1});
    EXPECT_EQ(*driver->store().find("key"), DefaultsValue(std::int64_t{2}));
}

TEST_P(UserDefaultsConformance, editFromOutside_isHeardAndReadAndKeepsTheRest) {
    driver->store().set("ours", std::string("kept"));
    driver->store().set("key", std::string("before"));
    driver->store().synchronize();
    int changes = 0;
    const auto subscription = driver->store().observe("key", [&](DefaultsChange change) {
        EXPECT_EQ(change, DefaultsChange::fromOutside);
        ++changes;
    });
    driver->editFromOutside("key", std::string("after"));
    ASSERT_TRUE(driver->runUntil([&] { return changes > 0; }));
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(*driver->store().find("key"), DefaultsValue(std::string("after")));
    EXPECT_EQ(*driver->store().find("ours"), DefaultsValue(std::string("kept")));
}

} // namespace dwellkey
