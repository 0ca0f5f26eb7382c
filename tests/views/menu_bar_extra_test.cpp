// SPDX-License-Identifier: MIT
// The menu-bar item as a bar sees it: over a bus of its own, with a watcher and a host that play
// the desktop's part. Everything lives in one thread, so whoever waits for an answer hangs.
#include "harness/services.h"
#include "harness/temporary_folder.h"
#include "offscreen.h"
#include "platform/fake/fake_session.h"
#include "platform/linux/resource_files.h"
#include "platform/qt/dbus_menu_types.h"
#include "platform/qt/qt_menu_bar_extra.h"
#include "platform/qt/status_notifier_item.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusReply>
#include <QEventLoop>
#include <QMenu>
#include <QTimer>

#include <gmock/gmock.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace dwellkey {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// The bus of the program's cases; the toolkit keeps its connection to it.
class PrivateBus final : public testing::Environment {
public:
    void SetUp() override {
        const char* path = std::getenv("PATH");
        bus_ = std::make_unique<e2e::SessionBus>(
            e2e::Environment{{"PATH", path == nullptr ? "/usr/bin" : path}}, folder_.path());
        qputenv("DBUS_SESSION_BUS_ADDRESS", bus_->address().c_str());
    }

private:
    e2e::TemporaryFolder folder_;
    std::unique_ptr<e2e::SessionBus> bus_;
};

testing::Environment* const privateBus =
    testing::AddGlobalTestEnvironment(new PrivateBus); // NOLINT: GoogleTest owns it

/// Turns the loop until `met` answers true; false when it does not in time.
bool comes(const std::function<bool()>& met) {
    QEventLoop loop;
    QTimer end;
    end.setSingleShot(true);
    end.start(std::chrono::seconds(20));
    QTimer look; // for what no event of this thread tells
    look.start(std::chrono::milliseconds(10));
    while (!met() && end.isActive()) {
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
    return met();
}

const QString watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");

/// The desktop's watcher with its host, on a connection of its own.
class Watcher final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered MEMBER hasHost)

public:
    Watcher() {
        QDBusConnection bus =
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("watcher"));
        bus.registerObject(QStringLiteral("/StatusNotifierWatcher"), this,
                           QDBusConnection::ExportAllContents);
        EXPECT_TRUE(bus.registerService(watcherName));
    }
    ~Watcher() override { QDBusConnection::disconnectFromBus(QStringLiteral("watcher")); }

    [[nodiscard]] QString awaitItem() const {
        EXPECT_TRUE(comes([&] { return !items.isEmpty(); }));
        return items.value(0);
    }

    bool hasHost = true;
    QStringList items;

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString& service) { items.append(service); }

Q_SIGNALS:
    void StatusNotifierHostRegistered();
    void StatusNotifierHostUnregistered();
};

class MenuBarExtraTest : public testing::Test {
protected:
    using Desktops = std::vector<std::string>;

    MenuBarExtraTest() { registerDBusMenuTypes(); }
    void TearDown() override {
        item.cancel();
        endWatcher();
    }

    void start(const Desktops& desktops = {"XFCE"}) {
        extra = std::make_unique<QtMenuBarExtra>(
            findTemplateIcon(QStringLiteral("org.dwellkey.Dwellkey-symbolic"),
                             ResourceFiles::defaultFolders()),
            desktops, log);
        extra->start();
    }
    void insert() {
        item = extra->insert({"Dwellkey",
                              {{.title = "Open_it",
                                .keyEquivalent = KeyEquivalent{U','},
                                .action = choosing("open")},
                               {.title = "Never", .isEnabled = false, .action = choosing("never")},
                               MenuEntry::separator(),
                               {.title = "Quit",
                                .keyEquivalent = KeyEquivalent{U'q'},
                                .action = choosing("quit")}}});
    }
    std::function<void()> choosing(const char* name) {
        return [this, name] {
            chosen.emplace_back(name);
            item.cancel(); // at the latest moment that a menu must bear
        };
    }

    /// What a bar's call is answered.
    [[nodiscard]] QDBusMessage call(const QString& path, const QString& interface,
                                    const QString& method, const QVariantList& arguments) const {
        auto message = QDBusMessage::createMethodCall(service, path, interface, method);
        message.setArguments(arguments);
        const QDBusPendingCallWatcher pending(QDBusConnection::sessionBus().asyncCall(message));
        EXPECT_TRUE(comes([&] { return pending.isFinished(); }));
        return pending.reply();
    }
    [[nodiscard]] QDBusMessage callMenu(const char* method, const QVariantList& arguments) const {
        return call(QStringLiteral("/MenuBar"), QStringLiteral("com.canonical.dbusmenu"),
                    QLatin1String(method), arguments);
    }
    [[nodiscard]] QVariant property(const char* name) const {
        return call(QStringLiteral("/StatusNotifierItem"),
                    QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                    {QStringLiteral("org.kde.StatusNotifierItem"), QLatin1String(name)})
            .arguments()
            .value(0)
            .value<QDBusVariant>()
            .variant();
    }
    [[nodiscard]] std::string text(const char* name) const {
        return property(name).toString().toStdString();
    }
    [[nodiscard]] DBusMenuNode layout() const {
        const auto reply = callMenu("GetLayout", {0, -1, QStringList()});
        EXPECT_EQ(reply.signature().toStdString(), "u(ia{sv}av)");
        return qdbus_cast<DBusMenuNode>(reply.arguments().value(1));
    }
    /// "Control+Q"
    [[nodiscard]] static std::string shortcut(const DBusMenuNode& node) {
        const QVariant value = node.properties[QStringLiteral("shortcut")];
        return qdbus_cast<QList<QStringList>>(value).value(0).join(QLatin1Char('+')).toStdString();
    }
    static QVariantList event(int id, const char* name = "clicked") {
        return {id, QLatin1String(name), QVariant::fromValue(QDBusVariant(0)), 0U};
    }
    static bool isOnBus(const QString& name) {
        return QDBusConnection::sessionBus().interface()->isServiceRegistered(name);
    }
    void endWatcher() {
        watcher.reset();
        EXPECT_TRUE(comes([] { return !isOnBus(watcherName); }));
    }
    /// Shows the item and learns what it is called.
    void show() {
        start();
        insert();
        service = watcher->awaitItem();
    }

    FakeErrorLog log;
    std::unique_ptr<Watcher> watcher = std::make_unique<Watcher>();
    std::unique_ptr<QtMenuBarExtra> extra;
    Subscription item;
    QString service;
    std::vector<std::string> chosen;
};

TEST_F(MenuBarExtraTest, item_saysWhatItIs) {
    show();
    EXPECT_THAT(service.toStdString(), testing::MatchesRegex("org.kde.StatusNotifierItem-.*-1"));
    EXPECT_EQ(text("Id"), "dwellkey");
    EXPECT_EQ(text("Title"), "Dwellkey");
    EXPECT_EQ(text("Category"), "ApplicationStatus");
    EXPECT_EQ(text("Status"), "Active");
    EXPECT_EQ(text("IconName"), "org.dwellkey.Dwellkey-symbolic");
    EXPECT_TRUE(QFile::exists(property("IconThemePath").toString()
                              + QStringLiteral("/org.dwellkey.Dwellkey-symbolic.svg")));
    EXPECT_TRUE(property("ItemIsMenu").toBool());
    EXPECT_EQ(qdbus_cast<ItemToolTip>(property("ToolTip")).title.toStdString(), "Dwellkey");
    EXPECT_EQ(property("Menu").value<QDBusObjectPath>().path().toStdString(), "/MenuBar");
    EXPECT_TRUE(log.entries.empty());
}

TEST_F(MenuBarExtraTest, pixmaps_areTheIconInItsSizes) {
    show();
    const auto pixmaps = qdbus_cast<QList<IconPixmap>>(property("IconPixmap"));
    std::vector<int> widths;
    for (const IconPixmap& pixmap : pixmaps) {
        widths.push_back(pixmap.width);
        ASSERT_EQ(pixmap.bytes.size(), 4 * pixmap.width * pixmap.height);
        // The corner shows the bar, the edge of the key cap the grey: alpha, red, green, blue.
        EXPECT_EQ(pixmap.bytes[0], 0);
        const auto edge = 4 * (pixmap.width * (pixmap.height / 4) + pixmap.width / 8);
        EXPECT_EQ(pixmap.bytes.mid(edge, 4).toHex().toStdString(), "ff808080") << pixmap.width;
    }
    EXPECT_THAT(widths, ElementsAre(16, 22, 24, 32, 48));
}

TEST_F(MenuBarExtraTest, menu_showsTitlesAndKeys) {
    show();
    const DBusMenuNode root = layout();
    ASSERT_EQ(root.children.size(), 4);
    EXPECT_EQ(root.properties[QStringLiteral("children-display")], QStringLiteral("submenu"));
    EXPECT_EQ(root.children[0].properties[QStringLiteral("label")], QStringLiteral("Open__it"));
    EXPECT_EQ(shortcut(root.children[0]), "Control+comma");
    EXPECT_EQ(root.children[1].properties[QStringLiteral("enabled")], false);
    EXPECT_EQ(root.children[2].properties[QStringLiteral("type")], QStringLiteral("separator"));
    EXPECT_EQ(shortcut(root.children[3]), "Control+Q");
}

TEST_F(MenuBarExtraTest, menuOnADesktopOfTheToolkit_namesKeysAsItDoes) {
    start({"LXQt"});
    insert();
    service = watcher->awaitItem();
    EXPECT_EQ(shortcut(layout().children[0]), "Control+,");
}

TEST_F(MenuBarExtraTest, part_givesWhatWasAskedFor) {
    show();
    const auto root = callMenu("GetLayout", {0, 0, QStringList{QStringLiteral("label")}});
    const auto node = qdbus_cast<DBusMenuNode>(root.arguments().value(1));
    EXPECT_TRUE(node.children.isEmpty());
    EXPECT_TRUE(node.properties.isEmpty());
    const auto group = callMenu("GetGroupProperties", {QVariant::fromValue(QList<int>{4, 99}),
                                                       QStringList{QStringLiteral("label")}});
    const auto found = qdbus_cast<QList<DBusMenuProperties>>(group.arguments().value(0));
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found[0].properties,
              (QVariantMap{{QStringLiteral("label"), QStringLiteral("Quit")}}));
    const auto title = callMenu("GetProperty", {1, QStringLiteral("label")});
    EXPECT_EQ(title.arguments().value(0).value<QDBusVariant>().variant(),
              QStringLiteral("Open__it"));
}

TEST_F(MenuBarExtraTest, click_isAnsweredBeforeItsActionTakesTheMenuAway) {
    show();
    EXPECT_EQ(callMenu("Event", event(4)).type(), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(comes([&] { return !chosen.empty(); }));
    EXPECT_THAT(chosen, ElementsAre("quit"));
    EXPECT_TRUE(comes([&] { return !isOnBus(service); }));
}

TEST_F(MenuBarExtraTest, clicksInAGroup_runTheActionsAndNameTheMissing) {
    show();
    const QList<DBusMenuEvent> events{{1, QStringLiteral("clicked"), QDBusVariant(0), 0},
                                      {99, QStringLiteral("clicked"), QDBusVariant(0), 0}};
    const auto reply = callMenu("EventGroup", {QVariant::fromValue(events)});
    EXPECT_EQ(qdbus_cast<QList<int>>(reply.arguments().value(0)), QList<int>{99});
    EXPECT_TRUE(comes([&] { return !chosen.empty(); }));
    EXPECT_THAT(chosen, ElementsAre("open"));
}

TEST_F(MenuBarExtraTest, whatIsNotAClickOnAnEnabledEntry_runsNothing) {
    show();
    for (const auto& arguments : {event(0), event(2), event(3), event(4, "hovered")}) {
        EXPECT_EQ(callMenu("Event", arguments).type(), QDBusMessage::ReplyMessage);
    }
    EXPECT_EQ(callMenu("AboutToShow", {0}).arguments().value(0), false);
    EXPECT_TRUE(chosen.empty());
}

TEST_F(MenuBarExtraTest, badCall_isAnsweredWithAnError) {
    show();
    for (const int id : {-1, 5, 2147483647}) {
        for (const auto& [method, arguments] : std::vector<std::pair<const char*, QVariantList>>{
                 {"GetLayout", {id, -1, QStringList()}},
                 {"GetProperty", {id, QStringLiteral("label")}},
                 {"Event", event(id)},
                 {"AboutToShow", {id}},
                 {"AboutToShowGroup", {QVariant::fromValue(QList<int>{id})}}}) {
            EXPECT_THAT(callMenu(method, arguments).errorMessage().toStdString(),
                        HasSubstr(std::to_string(id)))
                << method;
        }
    }
    EXPECT_THAT(callMenu("GetProperty", {1, QStringLiteral("colour")}).errorMessage().toStdString(),
                HasSubstr("colour"));
    EXPECT_EQ(callMenu("GetLayout", {QStringLiteral("0")}).type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(callMenu("deleteLater", {}).type(), QDBusMessage::ErrorMessage);
    EXPECT_TRUE(property("NoSuchProperty").isNull());
    EXPECT_EQ(layout().children.size(), 4);
}

TEST_F(MenuBarExtraTest, barThatShowsNoMenus_getsOurs) {
    show();
    EXPECT_EQ(call(QStringLiteral("/StatusNotifierItem"),
                   QStringLiteral("org.kde.StatusNotifierItem"), QStringLiteral("Activate"), {5, 5})
                  .type(),
              QDBusMessage::ReplyMessage);
    const auto menu = [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); };
    ASSERT_TRUE(comes([&] { return menu() != nullptr; }));
    ASSERT_EQ(menu()->actions().size(), 4);
    EXPECT_EQ(menu()->actions()[0]->shortcut().toString().toStdString(), "Ctrl+,");
    EXPECT_FALSE(menu()->actions()[1]->isEnabled());
    menu()->actions()[3]->trigger();
    EXPECT_TRUE(comes([&] { return !chosen.empty(); }));
    EXPECT_THAT(chosen, ElementsAre("quit"));
    EXPECT_EQ(menu(), nullptr);
}

TEST_F(MenuBarExtraTest, removal_isSeenAtOnce_andEachInsertionIsANewItem) {
    show();
    item.cancel();
    EXPECT_TRUE(comes([&] { return !isOnBus(service); }));
    insert();
    EXPECT_TRUE(comes([&] { return watcher->items.size() == 2; }));
    EXPECT_NE(watcher->items[1], service);
    EXPECT_TRUE(isOnBus(watcher->items[1]));
}

TEST_F(MenuBarExtraTest, watcherThatComesLateOrRestarts_isToldOfTheItem) {
    endWatcher();
    start();
    insert();
    EXPECT_TRUE(comes([&] { return !extra->isHosted(); }));
    service = QStringLiteral("org.kde.StatusNotifierItem-%1-1").arg(QApplication::applicationPid());
    EXPECT_TRUE(comes([&] { return text("Id") == "dwellkey" && text("Title") == "Dwellkey"; }));
    for (int turn = 0; turn < 2; ++turn) {
        watcher = std::make_unique<Watcher>();
        service = watcher->awaitItem();
        EXPECT_EQ(text("Title"), "Dwellkey");
        endWatcher();
    }
    EXPECT_TRUE(log.entries.empty()) << log.entries.front().cause;
}

TEST_F(MenuBarExtraTest, hosting_isFollowed) {
    std::vector<bool> told;
    start();
    EXPECT_TRUE(extra->isHosted()) << "before anything is known";
    const auto changes =
        extra->hostingDidChange.subscribe([&] { told.push_back(extra->isHosted()); });
    watcher->hasHost = false;
    Q_EMIT watcher->StatusNotifierHostUnregistered();
    EXPECT_TRUE(comes([&] { return told.size() == 1; }));
    watcher->hasHost = true;
    Q_EMIT watcher->StatusNotifierHostRegistered();
    EXPECT_TRUE(comes([&] { return told.size() == 2; }));
    endWatcher();
    EXPECT_TRUE(comes([&] { return told.size() == 3; }));
    EXPECT_THAT(told, ElementsAre(false, true, false));
}

} // namespace
} // namespace dwellkey

#include "menu_bar_extra_test.moc"
