// SPDX-License-Identifier: MIT
#include "views/about/about_view.h"

#include "hold/panel/timer_progress_bar.h"
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
    AlertManager alerts;
    PreferencesViewModel preferences{fake.platform(), alerts};
    AppStateManager appState{fake.platform()};
    TimerManager timer{fake.platform(), preferences};
    KeyCommandRegistry registry{fake.platform()};
    KeyboardShortcutsModel shortcuts{fake.platform(), timer, appState, registry};

    static QString texts(const QWidget& window) {
        QStringList all;
        for (const auto* label : window.findChildren<QLabel*>()) {
            all += label->text();
        }
        return all.join(QLatin1Char('\n'));
    }
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
    IntroView window(shortcuts, fake.platform());
    window.open();
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Dwellkey"));
    EXPECT_EQ(window.minimumSize(), window.maximumSize());
    window.findChild<QPushButton*>()->click();
    EXPECT_THAT(fake.windowHost.opened, ElementsAre("PreferencesView"));
}

TEST_F(AboutViewTest, introduction_saysHowToComeBack_whileNoBarHostsTheItem) {
    IntroView window(shortcuts, fake.platform());
    const auto* wayBack = window.findChild<SecondaryLabel*>(QStringLiteral("wayBack"));
    window.open();
    EXPECT_FALSE(wayBack->isVisible());
    fake.menuBarExtra.setHosted(false);
    EXPECT_TRUE(wayBack->isVisible());
    fake.menuBarExtra.setHosted(true);
    EXPECT_FALSE(wayBack->isVisible());
}

TEST_F(AboutViewTest, introduction_saysWhatIsGuarded_asItIsNow) {
    shortcuts.quitApplicationCommand.setKey(Key::q);
    shortcuts.quitApplicationCommand.setModifiers({Modifier::command});
    IntroView window(shortcuts, fake.platform());
    EXPECT_THAT(texts(window).toStdString(), HasSubstr("Hold Ctrl+Q for 2 seconds to quit."));
    preferences.setDelayUntilActivation(1.4);
    shortcuts.quitApplicationCommand.setModifiers({Modifier::command, Modifier::shift});
    fake.runLoop.runPosted();
    EXPECT_THAT(texts(window).toStdString(), HasSubstr("Shift+Q for 1.4 seconds"));
    shortcuts.quitApplicationCommand.remove();
    fake.runLoop.runPosted();
    EXPECT_THAT(texts(window).toStdString(), HasSubstr("No shortcut is guarded yet"));
}

TEST_F(AboutViewTest, introduction_fillsItsBarWithTheHold) {
    shortcuts.quitApplicationCommand.setKey(Key::q);
    shortcuts.quitApplicationCommand.setModifiers({Modifier::command});
    IntroView window(shortcuts, fake.platform());
    // By its name: without a meta-object of its own, its type would match any widget.
    const auto* bar =
        static_cast<TimerProgressBar*>(window.findChild<QWidget*>(QStringLiteral("holdBar")));
    fake.workspace.launchInFront("dwellkey")->ourselves = true;
    timer.setRehearsing(true);
    fake.hotKeys.press(12, 0x100);
    fake.runLoop.advance(std::chrono::seconds(1));
    EXPECT_NEAR(bar->progress(), 0.5, 0.01);
    fake.runLoop.advance(std::chrono::milliseconds(1100));
    EXPECT_EQ(bar->progress(), 1.0);
    EXPECT_THAT(texts(window).toStdString(), HasSubstr("That is all."));
}

} // namespace
} // namespace dwellkey
