// SPDX-License-Identifier: MIT
#include "platform/linux/linux_application_catalog.h"

#include "desktop_fixture.h"
#include "platform/fake/fake_localizer.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace dwellkey {
namespace {

using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

class ApplicationCatalogTest : public testing::DesktopFixture {
protected:
    /// The path of the application, or why there is none.
    std::string meantBy(const Url& url) const {
        const auto found = catalog_.applicationAt(url);
        const auto* problem = std::get_if<ApplicationCatalog::Problem>(&found);
        return problem == nullptr ? std::get<Url>(found).path() : problem->localizedDescription;
    }

    FakeLocalizer localizer_;
    LinuxApplicationCatalog catalog_{index_, localizer_};
};

TEST_F(ApplicationCatalogTest, applications_are_those_that_menus_show) {
    install("usr/applications/editor.desktop", "Icon=editor.png");
    install("usr/applications/helper.desktop", "NoDisplay=true");
    testing::writeFile(scratch_ / "home/applications/gone.desktop",
                       "[Desktop Entry]\nHidden=true\n");
    install("usr/applications/gone.desktop", "");
    std::vector<std::string> shown;
    for (const CatalogedApplication& application : catalog_.applications()) {
        shown.push_back(application.bundleIdentifier + " " + application.icon.name);
    }
    EXPECT_THAT(shown, UnorderedElementsAre("editor editor"));
}

TEST_F(ApplicationCatalogTest, location_of_an_application_is_found_whatever_the_user_points_at) {
    install("usr/applications/editor.desktop", "");
    const std::string entry = scratch_ / "usr/applications/editor.desktop";
    EXPECT_EQ(meantBy(Url::fromPath(entry)), entry);
    EXPECT_EQ(meantBy(*Url::parse("applications:editor.desktop")), entry);
    testing::writeFile(scratch_ / "elsewhere/my.desktop",
                       "[Desktop Entry]\nType=Application\nName=Mine\nExec=" + entry + ".bin\n");
    EXPECT_EQ(meantBy(Url::fromPath(scratch_ / "elsewhere/my.desktop")),
              scratch_ / "elsewhere/my.desktop");
}

TEST_F(ApplicationCatalogTest, anything_else_is_refused_with_the_reason) {
    testing::writeFile(scratch_ / "torn.desktop", "[Desktop Ent");
    EXPECT_THAT(meantBy(Url::fromPath(scratch_ / "torn.desktop")), HasSubstr("line 1"));
    EXPECT_THAT(meantBy(Url::fromPath(scratch_ / "missing.desktop")), HasSubstr("No such file"));
    for (const char* other : {"https://example.org/a.desktop", "applications:nobody.desktop",
                              "file:///usr/share/doc/readme.txt"}) {
        EXPECT_THAT(meantBy(*Url::parse(other)), HasSubstr("is not an installed application"))
            << other;
    }
}

} // namespace
} // namespace dwellkey
