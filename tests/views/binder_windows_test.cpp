// SPDX-License-Identifier: MIT
// The shortcut-binder path's windows, from the interface files that ship.
#include "binder/loader/ui_loader.h"
#include "binder/timer_window_controller.h"
#include "binder/windows/about_window_controller.h"
#include "binder/windows/intro_view_controller.h"
#include "binder/windows/open_panel.h"
#include "binder/windows/panel_window.h"
#include "binder/windows/preferences_window_controller.h"
#include "binder/windows/progress_bar.h"
#include "binder/windows/width_constraint.h"
#include "keycommands/key_command_coding.h"
#include "keycommands/recorder/key_recorder_view.h"
#include "offscreen.h"
#include "platform/fake/fake_platform.h"
#include "platform/fake/fake_shortcut_binder.h"
#include "platform/user_default.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFile>
#include <QLabel>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <fstream>
#include <limits>

namespace dwellkey {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Paths = std::vector<std::string>;

std::string shippedFile(const std::string& name) {
    std::ifstream file(DWELLKEY_RESOURCES "/" + name);
    return {std::istreambuf_iterator<char>(file), {}};
}

class InterfaceTest : public testing::Test {
public:
    ~InterfaceTest() override {
        ShortcutBinder::install(nullptr);
        InterfaceLoader::install(nullptr);
    }

protected:
    InterfaceTest() {
        for (const char* name : {"AboutWindowController.ui", "IntroViewController.ui",
                                 "PreferencesWindowController.ui", "TimerWindowController.ui"}) {
            platform.bundleReader.resources[name] = shippedFile(name);
        }
        InterfaceLoader::install(&loader);
        ShortcutBinder::install(&binder);
    }
    /// The shipped file, with all objects of this name called otherwise.
    void loseObject(const std::string& file, const std::string& name) {
        std::string& text = platform.bundleReader.resources[file];
        const std::string attribute = "name=\"" + name + "\"";
        ASSERT_NE(text.find(attribute), std::string::npos);
        text.replace(text.find(attribute), attribute.size(), "name=\"other\"");
    }

    FakePlatform platform;
    FakeShortcutBinder binder;
    UiLoader loader{platform.bundleReader, platform.errorLog};
};

class PreferencesWindow : public InterfaceTest {
protected:
    template <typename Widget>
    Widget& find(const char* name) {
        auto* found = controller.window().findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    [[nodiscard]] Paths storedApps() {
        return UserDefault<Paths>(platform.userDefaults, "apps", {}).get();
    }
    void select(int row) const {
        controller.tableView->setCurrentIndex(controller.tableView->model()->index(row, 0));
    }

    OpenPanelResult answer;
    OpenPanel asked;
    PreferencesWindowController controller{platform.platform(),
                                           [this](const OpenPanel& panel, QWidget*) {
                                               asked = panel;
                                               return answer;
                                           }};
};

TEST_F(PreferencesWindow, list_isEditedByItsButtons) {
    auto& add = find<QAbstractButton>("addButton");
    auto& remove = find<QAbstractButton>("removeButton");
    add.click(); // and cancelled
    answer = {ModalResponse::ok, {}};
    add.click();
    EXPECT_THAT(storedApps(), IsEmpty());
    EXPECT_THAT(asked.allowedFileTypes, ElementsAre("desktop"));
    EXPECT_TRUE(asked.canChooseFiles && !asked.canChooseDirectories
                && !asked.allowsMultipleSelection);
    const Url browser = Url::fromPath("/apps/My browser.desktop");
    answer = {ModalResponse::ok, {browser, Url::fromPath("/apps/second choice.desktop")}};
    add.click();
    add.click();
    EXPECT_THAT(storedApps(), ElementsAre("/apps/My browser.desktop", "/apps/My browser.desktop"));
    EXPECT_EQ(controller.tableView->model()->rowCount(), 2);
    EXPECT_FALSE(remove.isEnabled());
    controller.removeApplication();
    EXPECT_EQ(storedApps().size(), 2U);
    select(0);
    EXPECT_TRUE(remove.isEnabled());
    remove.click();
    EXPECT_THAT(storedApps(), ElementsAre("/apps/My browser.desktop"));
    EXPECT_FALSE(remove.isEnabled());
}

TEST_F(PreferencesWindow, rows_followTheStoreAndShowNameAndIcon) {
    platform.workspace.icons["/apps/org.Mail.app.desktop"] = {"mail-icon"};
    static_cast<void>(controller.window());
    platform.userDefaults.setFromOutside(
        "apps", Paths{"/apps/org.Mail.app.desktop", "/Applications/My.app.app/", "nothing"});
    const auto* rows = controller.tableView->model();
    ASSERT_EQ(rows->rowCount(), 3);
    const auto name = [&](int row) { return rows->index(row, 0).data().toString().toStdString(); };
    EXPECT_EQ(name(0), "org.Mail");
    EXPECT_EQ(name(1), "My");
    EXPECT_EQ(name(2), "nothing");
    EXPECT_EQ(controller.objectValueForTableColumn(7, 0).image.name, "mail-icon");
    platform.userDefaults.setFromOutside("apps", "a text");
    EXPECT_EQ(rows->rowCount(), 0);
    EXPECT_DEATH(static_cast<void>(controller.objectValueForTableColumn(0, 0)), "");
}

TEST_F(PreferencesWindow, list_isInsetFromItsLowerEdge) {
    static_cast<void>(controller.window());
    EXPECT_EQ(controller.tableView->contentInsets(), QMargins(0, 0, 0, 20));
}

TEST_F(PreferencesWindow, scope_isBoundBothWays) {
    auto& picker = find<QComboBox>("scopePicker");
    EXPECT_EQ(picker.currentIndex(), 0);
    Q_EMIT picker.activated(1); // by the user
    EXPECT_EQ(*platform.userDefaults.find("exclusionType"), DefaultsValue(std::int64_t{1}));
    EXPECT_EQ(picker.currentIndex(), 1);
    platform.userDefaults.setFromOutside("exclusionType", std::int64_t{2});
    EXPECT_EQ(picker.currentIndex(), -1) << "neither of the two";
    platform.userDefaults.removeFromOutside("exclusionType");
    EXPECT_EQ(picker.currentIndex(), 0);
}

TEST_F(PreferencesWindow, holdTime_isWhatTheDelayLeaves) {
    auto& field = find<QDoubleSpinBox>("holdField");
    EXPECT_EQ(field.value(), 2.25);
    field.setValue(1.3);
    EXPECT_EQ(*platform.userDefaults.find("delay"), DefaultsValue(0.95));
    field.setValue(3.0);
    EXPECT_EQ(*platform.userDefaults.find("delay"), DefaultsValue(-0.75));
    platform.userDefaults.setFromOutside("delay", std::int64_t{1});
    EXPECT_EQ(field.value(), 1.25);
    platform.userDefaults.setFromOutside("delay", 3.0);
    EXPECT_EQ(field.text().toStdString(), "Never");
    EXPECT_EQ(*platform.userDefaults.find("delay"), DefaultsValue(3.0))
        << "showing changes nothing";
    field.stepUp();
    EXPECT_EQ(field.text().toStdString(), "0.25 seconds");
    EXPECT_EQ(*platform.userDefaults.find("delay"), DefaultsValue(2.0));
    platform.userDefaults.setFromOutside("delay", 2.2);
    EXPECT_EQ(field.text().toStdString(), "0.05 seconds") << "true, though not to be chosen";
}

TEST_F(PreferencesWindow, chooser_startsWhereTheMostApplicationsAre) {
    const QTemporaryDir data;
    const std::pair<QLatin1String, int> folders[] = {
        {QLatin1String("few"), 1}, {QLatin1String("most"), 3}, {QLatin1String("last"), 2}};
    QStringList dirs;
    for (const auto& [name, count] : folders) {
        dirs << data.filePath(name);
        ASSERT_TRUE(QDir().mkpath(dirs.back() + QStringLiteral("/applications")));
        for (int i = 0; i < count; ++i) {
            QFile entry(QStringLiteral("%1/applications/%2.desktop").arg(dirs.back()).arg(i));
            ASSERT_TRUE(entry.open(QIODevice::WriteOnly));
        }
    }
    const QByteArray before = qgetenv("XDG_DATA_DIRS");
    qputenv("XDG_DATA_DIRS", dirs.join(u':').toUtf8());
    EXPECT_EQ(applicationsFolder(),
              data.filePath(QStringLiteral("most/applications")).toStdString());
    qputenv("XDG_DATA_DIRS", before);
}

TEST_F(PreferencesWindow, recorders_showAndChangeTheStoredShortcuts) {
    const auto stored =
        encode(KeyCommandContent{Key::f1, {Modifier::command}, KeyCommand::Name("windowShortcut")});
    platform.userDefaults.set("windowShortcut", Data{std::get<std::string>(stored)});
    static_cast<void>(controller.window());
    const auto recordingOf = [](ShortcutView& view) -> KeyRecording& {
        return view.findChild<KeyRecorderView*>()->recorder().segmentedControl().recording();
    };
    EXPECT_EQ(recordingOf(*controller.windowView).label(), "⌘F1");
    KeyRecording& quit = recordingOf(*controller.quitView);
    EXPECT_EQ(quit.label(), "Record shortcut");
    quit.press(RecorderSegment::shortcut);
    EXPECT_THAT(binder.broken, ElementsAre("quitShortcut")) << "the old one must not fire";
    quit.keyDown({12U, eventFlags({Modifier::command}), false});
    EXPECT_EQ(std::get<KeyCommandContent>(
                  *storedKeyCommand(platform.userDefaults, KeyCommand::Name("quitShortcut"))),
              (KeyCommandContent{Key::q, {Modifier::command}, KeyCommand::Name("quitShortcut")}));
    quit.keyUp({12U, 0, false});
    binder.setBindingFailure("quitShortcut", ShortcutBinder::Failure{eventHotKeyExistsErr, false});
    EXPECT_EQ(quit.failureText(), "Another program has taken this shortcut.");
    binder.setBindingFailure("quitShortcut", ShortcutBinder::Failure{eventHotKeyExistsErr, true});
    EXPECT_EQ(quit.failureText(), "Dwellkey uses this shortcut already.");
    quit.press(RecorderSegment::button);
    EXPECT_EQ(quit.failureText(), "");
    EXPECT_FALSE(platform.userDefaults.contains("quitShortcut"));
    EXPECT_EQ(quit.label(), "Record shortcut");
}

TEST_F(PreferencesWindow, objectThatTheFileLacks_endsTheProcessNamingBoth) {
    loseObject("PreferencesWindowController.ui", "tableView");
    EXPECT_DEATH(controller.window(),
                 "PreferencesWindowController.ui connects no outlet \"tableView\"");
    loseObject("AboutWindowController.ui", "versionTextField");
    platform.bundleReader.infoStrings["CFBundleShortVersionString"] = "1";
    AboutWindowController about(platform.platform());
    EXPECT_DEATH(about.window(),
                 "AboutWindowController.ui connects no outlet \"versionTextField\"");
}

TEST_F(InterfaceTest, fileThatCannotBeLoaded_endsTheProcessWhenItIsNeeded) {
    AboutWindowController about(platform.platform()); // needs none yet
    platform.bundleReader.resources["AboutWindowController.ui"] = "<ui version=\"4.0\"><widget";
    EXPECT_DEATH(about.window(), "AboutWindowController.ui cannot be loaded");
    InterfaceLoader::install(nullptr);
    EXPECT_DEATH(about.window(), "AboutWindowController.ui cannot be loaded");
}

TEST_F(InterfaceTest, about_showsTheVersionAndOpensTheHelp) {
    AboutWindowController unknown(platform.platform());
    static_cast<void>(unknown.window());
    EXPECT_EQ(unknown.versionTextField->text().toStdString(), "Version");
    platform.bundleReader.infoStrings["CFBundleShortVersionString"] = "1.2.3";
    AboutWindowController about(platform.platform());
    auto* support = about.window().findChild<QAbstractButton*>(QStringLiteral("supportButton"));
    EXPECT_EQ(about.versionTextField->text().toStdString(), "Version 1.2.3");
    support->click();
    EXPECT_THAT(platform.workspace.openedUrls, IsEmpty());
    platform.bundleReader.resources["help/index.html"] = "<p>Help</p>";
    support->click();
    EXPECT_THAT(platform.workspace.openedUrls, ElementsAre("file:///resources/help/index.html"));
}

TEST_F(InterfaceTest, introduction_opensNothing) {
    IntroViewController intro(platform.platform());
    intro.view().findChild<QAbstractButton*>(QStringLiteral("preferencesButton"))->click();
    EXPECT_THAT(platform.windowHost.opened, IsEmpty());
}

class PanelFromFile : public InterfaceTest {
protected:
    PanelFromFile() { controller.showWindow(); }

    [[nodiscard]] static QWidget& onScreen() {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->isVisible()) {
                return *widget;
            }
        }
        throw std::runtime_error("no panel");
    }
    [[nodiscard]] static QWidget& fill() { return *onScreen().findChild<ProgressBar*>(); }
    void setProgress(double fraction) {
        controller.setProgress(fraction);
        platform.runLoop.runPosted();
    }

    PanelInterfaceFiles files{platform.panelSupport};
    TimerWindowController controller{"TimerWindowController", platform.platform(), files};
};

TEST_F(PanelFromFile, window_neverTakesTheFocus) {
    EXPECT_TRUE(onScreen().windowFlags().testFlag(Qt::BypassWindowManagerHint));
    EXPECT_TRUE(onScreen().windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_EQ(platform.panelSupport.keptAbove.size(), 1U);
    controller.window()->center();
    EXPECT_EQ(onScreen().geometry().center(), primaryScreen.center());
}

TEST_F(PanelFromFile, fill_isThatFractionOfTheTrackAtItsLeadingEnd) {
    const double track = controller.progressSpacer->boundsWidth();
    EXPECT_EQ(track, 500 - 2 * 24);
    setProgress(0.5);
    EXPECT_EQ(fill().geometry(), QRect(0, 0, static_cast<int>(track / 2), 6));
    setProgress(1.5);
    EXPECT_EQ(fill().width(), static_cast<int>(track * 1.5)) << "not clamped";
    for (const double nothing : {-1.0, std::numeric_limits<double>::quiet_NaN()}) {
        setProgress(nothing);
        EXPECT_EQ(fill().width(), 0);
    }
    setProgress(std::numeric_limits<double>::infinity());
    EXPECT_GE(fill().width(), track);
    onScreen().setLayoutDirection(Qt::RightToLeft);
    setProgress(0.25);
    EXPECT_EQ(fill().geometry().right(), track - 1);
}

TEST_F(PanelFromFile, fill_keepsTheAccentColourItWasMadeWith) {
    const QColor accent = QApplication::palette().color(QPalette::Active, QPalette::Highlight);
    setProgress(1.0);
    onScreen().setPalette(QPalette(Qt::green));
    EXPECT_EQ(fill().grab().toImage().pixelColor(100, 3), accent);
    EXPECT_DEATH(ProgressBar(QRect(0, 0, 10, 10)), "init\\(frame:\\).*Dwellkey.ProgressBar");
}

TEST_F(PanelFromFile, longTitle_makesThePanelWider) {
    controller.titleLabel->setStringValue("Hold to Quit App");
    EXPECT_EQ(onScreen().size(), QSize(500, 130));
    controller.titleLabel->setStringValue(
        "Zum Beenden des Programms die Tasten gedrückt halten, bitte");
    EXPECT_GT(onScreen().width(), 500);
    auto* label = onScreen().findChild<QLabel*>(QStringLiteral("titleLabel"));
    EXPECT_GE(label->width(), label->sizeHint().width());
}

} // namespace
} // namespace dwellkey
