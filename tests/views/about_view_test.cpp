// SPDX-License-Identifier: MIT
#include "views/about/about_view.h"

#include "offscreen.h"
#include "platform/fake/fake_platform.h"
#include "views/about/intro_view.h"
#include "views/about/product_labels.h"
#include "views/about/support_button.h"

#include <QLabel>

#include <gmock/gmock.h>

namespace dwellkey {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class AboutViewTest : public testing::Test {
protected:
    static SupportButton& supportButton(QWidget& window) {
        return *window.findChild<SupportButton*>();
    }
    /// The version is read once in the process, through the shared platform.
    static FakePlatform& sharedPlatform() {
        static auto* const instance = [] {
            auto* desktop = new FakePlatform;
            desktop->bundleReader.infoStrings["CFBundleShortVersionString"] = "7.8";
            Platform::install(desktop->platform());
            return desktop;
        }();
        return *instance;
    }

    FakePlatform& shared = sharedPlatform();
    FakePlatform fake;
    /// Installs the help page; its path.
    std::string installPage() {
        fake.bundleReader.resources["help/index.html"] = "<html>";
        return *fake.bundleReader.pathForResource("help/index", "html");
    }
};

TEST_F(AboutViewTest, about_saysWhatItIs_andKeepsItsSize) {
    AboutView window(fake.platform());
    window.open();
    EXPECT_EQ(window.windowTitle(), QStringLiteral("About"));
    EXPECT_EQ(window.minimumSize(), window.maximumSize());
    EXPECT_GE(window.width(), 435);
    EXPECT_GE(window.height(), 185);
    EXPECT_EQ(window.findChild<DwellkeyVersion*>()->text(), QStringLiteral("Version 7.8"));
    EXPECT_THAT(window.findChild<DwellkeyCopyright*>()->text().toStdString(),
                HasSubstr(std::to_string(copyrightYear())));
}

TEST_F(AboutViewTest, support_opensTheHelpPage) {
    const std::string page = installPage();
    AboutView window(fake.platform());
    supportButton(window).click();
    EXPECT_THAT(fake.workspace.openedUrls, ElementsAre("file://" + page));
    EXPECT_TRUE(fake.alerts.shown.empty());
}

TEST_F(AboutViewTest, support_withoutPageOrBrowser_saysWhy) {
    SupportButton button(fake.platform());
    button.click();
    ASSERT_EQ(fake.alerts.shown.size(), 1U);
    EXPECT_THAT(fake.alerts.shown.back().informativeText, HasSubstr("missing"));
    const std::string page = installPage();
    fake.workspace.canOpenUrls = false;
    button.click();
    ASSERT_EQ(fake.alerts.shown.size(), 2U);
    EXPECT_THAT(fake.alerts.shown.back().informativeText, HasSubstr(page));
}

TEST_F(AboutViewTest, introduction_leadsToThePreferences) {
    IntroView window(fake.platform());
    window.open();
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Dwellkey"));
    EXPECT_EQ(window.minimumSize(), window.maximumSize());
    window.findChild<QPushButton*>()->click();
    EXPECT_THAT(fake.windowHost.opened, ElementsAre("PreferencesView"));
}

TEST_F(AboutViewTest, introduction_saysHowToComeBack_whileNoBarHostsTheItem) {
    IntroView window(fake.platform());
    const auto* wayBack = window.findChild<SecondaryLabel*>();
    window.open();
    EXPECT_FALSE(wayBack->isVisible());
    fake.menuBarExtra.setHosted(false);
    EXPECT_TRUE(wayBack->isVisible());
    fake.menuBarExtra.setHosted(true);
    EXPECT_FALSE(wayBack->isVisible());
}

} // namespace
} // namespace dwellkey
