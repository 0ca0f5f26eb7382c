// SPDX-License-Identifier: MIT
#include "settings/app_scope_mode.h"

#include "platform/fake/fake_platform.h"

#include <gtest/gtest.h>

namespace dwellkey {
namespace {

TEST(AppScopeMode, text_namesItsModeOnlyWhenItIsExact) {
    EXPECT_EQ(appScopeMode("Use Dwellkey with all apps except..."), AppScopeMode::excludeApps);
    EXPECT_EQ(appScopeMode("Only use Dwellkey with the following apps..."),
              AppScopeMode::includeApps);
    for (const char* other :
         {"", "use Dwellkey with all apps except...", "excludeApps",
          "Use Dwellkey with all apps except", "Use Dwellkey with all apps except... "}) {
        EXPECT_EQ(appScopeMode(other), std::nullopt) << other;
    }
}

class Guards : public testing::Test {
protected:
    AppInfo record(const std::string& name, std::optional<std::string> identifier) {
        const Url url = Url::fromPath("/apps/" + name);
        fake_.bundleReader.install(url, {std::move(identifier), std::nullopt});
        return {url, fake_.platform()};
    }
    FakePlatform fake_;
};

TEST_F(Guards, listedApplication_isGuardedOnlyUnderInclude) {
    std::vector apps{record("a", "org.a"), record("b", "org.b")};
    apps[1].existsOnDisk = false; // listed is listed, on disk or not
    for (const char* listed : {"org.a", "org.b"}) {
        EXPECT_FALSE(guards(AppScopeMode::excludeApps, listed, apps)) << listed;
        EXPECT_TRUE(guards(AppScopeMode::includeApps, listed, apps)) << listed;
    }
    for (const char* other : {"org.c", "org.A", "org.a ", "org.", ""}) {
        EXPECT_TRUE(guards(AppScopeMode::excludeApps, other, apps)) << other;
        EXPECT_FALSE(guards(AppScopeMode::includeApps, other, apps)) << other;
    }
}

TEST_F(Guards, listWithoutIdentifiers_isLikeAnEmptyOne) {
    const std::vector nameless{record("a", std::nullopt)};
    for (const auto& apps : {std::vector<AppInfo>{}, nameless}) {
        for (const char* any : {"org.a", ""}) {
            EXPECT_TRUE(guards(AppScopeMode::excludeApps, any, apps));
            EXPECT_FALSE(guards(AppScopeMode::includeApps, any, apps));
        }
    }
}

} // namespace
} // namespace dwellkey
