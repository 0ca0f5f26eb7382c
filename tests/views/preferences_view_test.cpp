// SPDX-License-Identifier: MIT
#include "views/preferences/preferences_view.h"

#include "keycommands/key_command_registry.h"
#include "offscreen.h"
#include "platform/fake/fake_platform.h"
#include "views/preferences/application_picker.h"
#include "views/preferences/application_row_delegate.h"
#include "views/preferences/apps_list_view.h"
#include "views/preferences/delay_slider.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QToolButton>

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace dwellkey {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Url entry(const std::string& name) {
    return Url::fromPath("/apps/" + name + ".desktop");
}

class PreferencesViewTest : public testing::Test {
protected:
    PreferencesViewTest() {
        for (const char* name : {"editor", "browser"}) {
            platform.bundleReader.install(entry(name), {name, std::string("The ") + name});
            preferences.addApp(entry(name));
        }
        open();
    }
    void open() {
        view.open();
        turn();
    }
    void turn() {
        platform.runLoop.runPosted();
        QApplication::processEvents();
    }
    template <typename Widget>
    Widget& find(int index = 0) const {
        return *view.findChildren<Widget*>().at(index);
    }
    template <typename Widget>
    Widget& named(const char* name) const {
        for (auto* widget : view.findChildren<Widget*>()) {
            if (widget->accessibleName() == QLatin1String(name)
                || widget->property("text").toString() == QLatin1String(name)) {
                return *widget;
            }
        }
        ADD_FAILURE() << "no " << name;
        return *view.findChildren<Widget*>().first();
    }
    AppsListView& list() const { return find<AppsListView>(); }
    QToolButton& minus() const { return named<QToolButton>("Remove selected applications"); }
    std::vector<std::string> listed() const {
        std::vector<std::string> rows;
        for (int row = 0; row < list().model()->rowCount(); ++row) {
            const QModelIndex index = list().model()->index(row, 0);
            const std::string second =
                index.data(ApplicationRowDelegate::secondLineRole).toString().toStdString();
            rows.push_back(index.data().toString().toStdString() + (second.empty() ? "" : "|")
                           + second);
        }
        return rows;
    }
    void select(int row) {
        list().selectionModel()->select(list().model()->index(row, 0), QItemSelectionModel::Select);
    }
    static void press(QWidget& widget, Qt::Key key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }
    QMessageBox* alert() const { return view.findChild<QMessageBox*>(); }

    FakePlatform platform;
    AlertManager alertManager;
    AppStateManager appState{platform.platform()};
    PreferencesViewModel preferences{platform.platform(), alertManager};
    TimerManager timer{platform.platform(), preferences};
    KeyCommandRegistry registry{platform.platform()};
    KeyboardShortcutsModel shortcuts{platform.platform(), timer, appState, registry};
    PreferencesNavigation navigation;
    PreferencesView view{{preferences, shortcuts, alertManager, navigation}, platform.platform()};
};

TEST_F(PreferencesViewTest, delaySlider_andModel_followEachOther) {
    QSlider& slider = find<DelaySlider>().slider();
    EXPECT_EQ(slider.value(), 3); // 1.9 s is nearest to the 2 s in force
    EXPECT_EQ(slider.toolTip().toStdString(), "2 seconds");
    press(slider, Qt::Key_Home);
    EXPECT_EQ(preferences.delayUntilActivation(), 3.0);
    press(slider, Qt::Key_Right);
    EXPECT_EQ(preferences.delayUntilActivation(), 2.7);
    press(slider, Qt::Key_End);
    EXPECT_EQ(preferences.delayUntilActivation(), 0.25);
    preferences.setDelayUntilActivation(1.05);
    turn();
    EXPECT_EQ(slider.value(), 5);
    EXPECT_EQ(preferences.delayUntilActivation(), 1.05);
}

TEST_F(PreferencesViewTest, delaySlider_speaksInSeconds) {
    auto* spoken = QAccessible::queryAccessibleInterface(&find<DelaySlider>().slider());
    EXPECT_EQ(spoken->text(QAccessible::Name).toStdString(), "Delay Until Activation");
    EXPECT_EQ(spoken->text(QAccessible::Value).toStdString(), "2 seconds");
    spoken->valueInterface()->setCurrentValue(0.65);
    EXPECT_EQ(preferences.delayUntilActivation(), 0.6);
    EXPECT_EQ(spoken->valueInterface()->currentValue().toDouble(), 0.6);
}

TEST_F(PreferencesViewTest, scopeAndSwitches_andModel_followEachOther) {
    auto& scope = find<QComboBox>();
    EXPECT_EQ(scope.currentText().toStdString(), "Use Dwellkey with all apps except...");
    press(scope, Qt::Key_Down);
    EXPECT_EQ(preferences.selectedAppScope(), AppScopeMode::includeApps);
    auto& icon = named<QCheckBox>("Show menu bar icon");
    icon.click();
    EXPECT_FALSE(preferences.showMenuBarIcon());
    EXPECT_TRUE(view.isVisible());
    auto& login = named<QCheckBox>("Open automatically at login");
    preferences.refreshLoginItemStatus();
    login.click();
    EXPECT_EQ(platform.loginItem.registerCount, 1);

    preferences.setSelectedAppScope(AppScopeMode::excludeApps);
    preferences.setShowMenuBarIcon(true);
    platform.loginItem.currentStatus = LoginItemStatus::requiresApproval;
    platform.loginItem.didChange.emit(); // switched off with the desktop's own tool
    turn();
    EXPECT_EQ(scope.currentIndex(), 0);
    EXPECT_TRUE(icon.isChecked());
    EXPECT_FALSE(login.isChecked());
    EXPECT_EQ(platform.loginItem.unregisterCount, 0);
}

TEST_F(PreferencesViewTest, editsOfTheSettings_showWhoeverMadeThem) {
    platform.userDefaults.setFromOutside("showMenuBarIcon", false);
    platform.userDefaults.setFromOutside(
        "appURLs", std::vector<std::string>{entry("browser").absoluteString()});
    turn();
    turn();
    EXPECT_FALSE(named<QCheckBox>("Show menu bar icon").isChecked());
    EXPECT_THAT(listed(), ElementsAre("The browser"));
}

TEST_F(PreferencesViewTest, list_showsNamesAndWhatIsMissing) {
    EXPECT_THAT(listed(), ElementsAre("The editor", "The browser"));
    select(0);
    platform.bundleReader.uninstall(entry("editor"));
    platform.applicationCatalog.didChange.emit();
    platform.runLoop.advance(std::chrono::seconds(1));
    turn();
    EXPECT_THAT(listed(), ElementsAre("editor|App not found on disk", "The browser"));
    EXPECT_TRUE(list().selectionModel()->isRowSelected(0));
    minus().click(); // the record that was selected differs from the listed one by now
    turn();
    EXPECT_THAT(listed(), ElementsAre("The browser"));
    EXPECT_FALSE(minus().isEnabled());
}

TEST_F(PreferencesViewTest, minusAndDelete_removeWhatIsSelected) {
    EXPECT_FALSE(minus().isEnabled());
    select(1);
    EXPECT_TRUE(minus().isEnabled());
    press(list(), Qt::Key_Delete);
    turn();
    EXPECT_THAT(listed(), ElementsAre("The editor"));
    list().selectAll();
    minus().click();
    turn();
    EXPECT_THAT(preferences.apps(), IsEmpty());
    press(list(), Qt::Key_Delete);
}

TEST_F(PreferencesViewTest, droppedLocations_areAddedOrRefusedWithTheReason) {
    platform.applicationCatalog.problems["file:///apps/torn.desktop"] = "line 1: torn";
    QMimeData dragged;
    dragged.setUrls({QUrl(QStringLiteral("file:///apps/player%20two.desktop")),
                     QUrl(QStringLiteral("file:///apps/torn.desktop"))});
    constexpr auto offered = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter({10, 10}, offered, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(list().viewport(), &enter);
    EXPECT_EQ(enter.dropAction(), Qt::CopyAction); // a move would let the source delete it
    QDropEvent drop({10, 10}, offered, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(list().viewport(), &drop);
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
    turn();
    EXPECT_THAT(listed(), ElementsAre("The editor", "The browser", "player two"));
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->text().toStdString(), "Failed to add app");
    EXPECT_EQ(alert()->informativeText().toStdString(), "line 1: torn");
    alert()->accept();
    EXPECT_FALSE(alertManager.isAlertPresented.get());
}

TEST_F(PreferencesViewTest, alert_closesWithItsFlagAndWaitsForTheWindow) {
    alertManager.showAlert("Login Item Error", "No luck.");
    turn();
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->buttons().size(), 1);
    alertManager.isAlertPresented = false;
    turn();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(alert(), nullptr);
    view.close();
    alertManager.showAlert("Login Item Error", "Again.");
    turn();
    EXPECT_EQ(alert(), nullptr);
    open();
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->informativeText().toStdString(), "Again.");
}

TEST_F(PreferencesViewTest, alert_hasItsTextsBeforeItIsPlaced) {
    class FirstText final : public QObject {
    public:
        bool eventFilter(QObject* watched, QEvent* event) override {
            if (const auto* box = qobject_cast<QMessageBox*>(watched);
                box != nullptr && event->type() == QEvent::Show) {
                text = box->informativeText();
            }
            return false;
        }
        QString text;
    } first;
    qApp->installEventFilter(&first);
    alertManager.showAlert("Login Item Error", "No luck.");
    turn();
    EXPECT_EQ(first.text, QStringLiteral("No luck."));
}

TEST_F(PreferencesViewTest, picker_showsRunningOnesFirstAndAddsTheChoice) {
    for (const char* name : {"Calculator", "Zoo", "Web"}) {
        platform.applicationCatalog.listed.push_back({entry(name), name, name, {"icon"}});
    }
    platform.workspace.launch("Zoo");
    named<QToolButton>("Add application").click();
    auto* picker = view.findChild<ApplicationPicker*>();
    ASSERT_NE(picker, nullptr);
    const auto* rows = picker->findChild<QListView*>()->model();
    EXPECT_EQ(rows->index(0, 0).data().toString().toStdString(), "Zoo");
    EXPECT_EQ(rows->index(1, 0).data().toString().toStdString(), "Calculator");
    auto* search = picker->findChild<QLineEdit*>();
    search->setText(QStringLiteral("c  LAT"));
    EXPECT_EQ(rows->rowCount(), 1);
    press(*search, Qt::Key_Return);
    turn();
    EXPECT_EQ(listed().back(), "Calculator");
}

TEST_F(PreferencesViewTest, eachAppearance_isCentredAndChecksTheDisk) {
    const auto fromTheMiddle = [this] {
        return (view.frameGeometry().center() - primaryScreen.center()).manhattanLength();
    };
    constexpr int frame = 4; // its width is known once the window was shown
    EXPECT_LE(fromTheMiddle(), frame);
    EXPECT_EQ(view.minimumSize(), view.maximumSize());
    view.move(0, 0);
    view.open();
    EXPECT_EQ(view.pos(), QPoint(0, 0)); // open already: only brought forward
    view.close();
    platform.bundleReader.uninstall(entry("editor"));
    open();
    EXPECT_LE(fromTheMiddle(), frame);
    EXPECT_EQ(listed().front(), "editor|App not found on disk");
}

} // namespace
} // namespace dwellkey
