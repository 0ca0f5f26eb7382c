// SPDX-License-Identifier: MIT
#include "keyboard_layout_conformance.h"

namespace dwellkey {

TEST_P(KeyboardLayoutConformance, characters_areThoseOfTheLayoutWithoutModifiers) {
    driver->use(TestedLayout::us);
    EXPECT_EQ(driver->layout().character(0), "a");
    EXPECT_EQ(driver->layout().character(12), "q");
    EXPECT_EQ(driver->layout().character(18), "1");
    EXPECT_EQ(driver->layout().character(41), ";");
}

TEST_P(KeyboardLayoutConformance, changeOfLayout_showsAtOnce) {
    driver->use(TestedLayout::us);
    EXPECT_EQ(driver->layout().character(12), "q");
    driver->use(TestedLayout::french);
    EXPECT_EQ(driver->layout().character(12), "a");
    EXPECT_EQ(driver->layout().character(0), "q");
    EXPECT_EQ(driver->layout().character(41), "m");
    EXPECT_EQ(driver->layout().character(19), "é");
    driver->use(TestedLayout::us);
    EXPECT_EQ(driver->layout().character(12), "q");
}

TEST_P(KeyboardLayoutConformance, keysThatTypeNothing_giveTheEmptyText) {
    driver->use(TestedLayout::us);
    EXPECT_EQ(driver->layout().character(122), "") << "F1";
    EXPECT_EQ(driver->layout().character(200), "") << "no such key";
}

} // namespace dwellkey
