// SPDX-License-Identifier: MIT
#include "app/state/product_constants.h"

#include "platform/fake/fake_platform.h"

#include <gtest/gtest.h>

#include <chrono>

namespace dwellkey {
namespace {

TEST(ProductConstants, readAppVersion_withoutAVersionString_isUnknown) {
    FakeBundleReader reader;
    EXPECT_EQ(readAppVersion(reader), "Unknown");
    reader.infoStrings["CFBundleShortVersionString"] = "1.2";
    EXPECT_EQ(readAppVersion(reader), "1.2");
}

TEST(ProductConstants, appVersion_staysWhatItWasAtFirstUse) {
    FakePlatform fake;
    Platform::install(fake.platform());
    fake.bundleReader.infoStrings["CFBundleShortVersionString"] = "1.2";
    EXPECT_EQ(appVersion(), "1.2");
    fake.bundleReader.infoStrings["CFBundleShortVersionString"] = "1.3";
    EXPECT_EQ(appVersion(), "1.2");
}

TEST(ProductConstants, copyrightYear_isThePresentYear) {
    using namespace std::chrono;
    const auto today = floor<days>(system_clock::now());
    // The day here is UTC's; the user's may be one ahead or behind.
    EXPECT_GE(copyrightYear(), int{year_month_day{today - days{1}}.year()});
    EXPECT_LE(copyrightYear(), int{year_month_day{today + days{1}}.year()});
}

} // namespace
} // namespace dwellkey
