// SPDX-License-Identifier: MIT
#include "support/observable_object.h"

#include <gtest/gtest.h>

namespace dwellkey {
namespace {

class Model : public ObservableObject {
public:
    Published<int> value{*this, 1};
};

TEST(Published, assigningAnotherValue_announcesItBeforeStoringIt) {
    Model model;
    int announced = 0;
    int seenByPropertyObserver = 0;
    int seenByModelObserver = 0;
    const auto property = model.value.willChange.subscribe([&](int next) {
        announced = next;
        seenByPropertyObserver = model.value.get();
    });
    const auto whole =
        model.objectWillChange.subscribe([&] { seenByModelObserver = model.value.get(); });
    model.value = 2;
    EXPECT_EQ(announced, 2);
    EXPECT_EQ(seenByPropertyObserver, 1);
    EXPECT_EQ(seenByModelObserver, 1);
    EXPECT_EQ(model.value.get(), 2);
}

TEST(Published, assigningAnEqualValue_isSilent) {
    Model model;
    int announcements = 0;
    const auto property = model.value.willChange.subscribe([&](int) { ++announcements; });
    const auto whole = model.objectWillChange.subscribe([&] { ++announcements; });
    model.value = 1;
    EXPECT_EQ(announcements, 0);
}

} // namespace
} // namespace dwellkey
