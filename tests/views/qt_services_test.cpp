// SPDX-License-Identifier: MIT
// The services that the toolkit carries out, driven from inside their own loops.
#include "offscreen.h"
#include "platform/fake/fake_session.h"
#include "platform/qt/qt_alerts.h"
#include "platform/qt/qt_menu_tracking.h"
#include "platform/qt/qt_run_loop.h"
#include "platform/qt/qt_window_host.h"

#include <QAbstractButton>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

namespace dwellkey {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

class QtServicesTest : public testing::Test {};

const Alert question{"Message", "Explanation", AlertStyle::warning, {"Open Settings", "Cancel"}};

/// Runs the alert and, once it is open, `act` on it.
int answer(const Alert& alert, std::function<void(QMessageBox&)> act) {
    QTimer::singleShot(0, [act = std::move(act)] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        act(*box);
    });
    return QtAlerts().runModal(alert);
}

void typeInto(QWidget& widget, int key) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }
}

void click(QMessageBox& box, const char* text) {
    for (QAbstractButton* button : box.buttons()) {
        if (button->text() == QLatin1String(text)) {
            button->click();
        }
    }
}

TEST_F(QtServicesTest, alert_answersWithTheButtonInOrder) {
    EXPECT_EQ(answer(question, [](QMessageBox& box) { click(box, "Open Settings"); }), 1000);
    EXPECT_EQ(answer(question, [](QMessageBox& box) { click(box, "Cancel"); }), 1001);
}

TEST_F(QtServicesTest, alert_returnPressesTheFirstButton_escapeAndClosingTheLast) {
    EXPECT_EQ(answer(question, [](QMessageBox& box) { typeInto(box, Qt::Key_Return); }), 1000);
    EXPECT_EQ(answer(question, [](QMessageBox& box) { typeInto(box, Qt::Key_Escape); }), 1001);
    EXPECT_EQ(answer(question, [](QMessageBox& box) { box.close(); }), 1001);
    const Alert notice{"Message", "", AlertStyle::informational, {"OK"}};
    EXPECT_EQ(answer(notice, [](QMessageBox& box) { typeInto(box, Qt::Key_Escape); }), 1000);
}

TEST_F(QtServicesTest, alert_showsTheNamesOfOthersAsTheyAre) {
    const Alert hostile{"<b>App</b>", "<a href=\"file:///\">name</a>", AlertStyle::warning, {"OK"}};
    answer(hostile, [](QMessageBox& box) {
        int shown = 0;
        for (const QLabel* label : box.findChildren<QLabel*>()) {
            if (label->text().contains(QLatin1Char('<'))) {
                EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text().toStdString();
                ++shown;
            }
        }
        EXPECT_EQ(shown, 2);
        box.close();
    });
}

class QtMenuTrackingTest : public testing::Test {
protected:
    void observe() {
        begin = tracking.observe(MenuTrackingNotification::didBegin,
                                 [this] { heard.emplace_back("begin"); });
        end = tracking.observe(MenuTrackingNotification::didEnd,
                               [this] { heard.emplace_back("end"); });
    }

    QtMenuTracking tracking;
    std::vector<std::string> heard;
    Subscription begin;
    Subscription end;
};

TEST_F(QtMenuTrackingTest, submenu_isPartOfTheSameTracking) {
    observe();
    QMenu menu;
    auto* submenu = menu.addMenu(QStringLiteral("More"));
    menu.addAction(QStringLiteral("Quit"));
    submenu->addAction(QStringLiteral("Item"));
    menu.popup({10, 10});
    submenu->popup({60, 10});
    EXPECT_THAT(heard, ElementsAre("begin"));
    submenu->close();
    EXPECT_THAT(heard, ElementsAre("begin"));
    menu.close();
    EXPECT_THAT(heard, ElementsAre("begin", "end"));
}

TEST_F(QtMenuTrackingTest, menuThatIsDestroyedWhileOpen_endsTheTracking) {
    observe();
    {
        QMenu menu;
        menu.addAction(QStringLiteral("Quit"));
        menu.popup({10, 10});
    }
    EXPECT_THAT(heard, ElementsAre("begin", "end"));
}

TEST_F(QtMenuTrackingTest, observersThatLeftWhileAMenuWasOpen_missNothingLater) {
    QMenu menu;
    menu.addAction(QStringLiteral("Quit"));
    observe();
    menu.popup({10, 10});
    begin.cancel();
    end.cancel();
    menu.close();
    observe();
    menu.popup({10, 10});
    menu.close();
    EXPECT_THAT(heard, ElementsAre("begin", "begin", "end"));
}

TEST_F(QtServicesTest, windowHost_opensWhatWasDeclaredLast_andReportsTheRest) {
    FakeErrorLog log;
    QtWindowHost host(log);
    std::vector<std::string> opened;
    host.declare("settings", [&] { opened.emplace_back("old"); });
    host.declare("settings", [&] { opened.emplace_back("new"); });
    host.open("settings");
    host.open("settings");
    EXPECT_THAT(opened, ElementsAre("new", "new"));
    host.open("about");
    ASSERT_EQ(log.entries.size(), 1U);
    EXPECT_THAT(log.entries.front().message, testing::HasSubstr("about"));
}

TEST_F(QtServicesTest, timerCancelledInTheNestedLoopOfItsOwnTick_neverTicksAgain) {
    QtRunLoop runLoop;
    int ticks = 0;
    Subscription timer;
    QEventLoop outer;
    timer = runLoop.repeat(1ms, [&] {
        ++ticks;
        QEventLoop nested; // as a modal alert does
        QTimer::singleShot(5, &nested, [&] {
            timer.cancel();
            QTimer::singleShot(5, &nested, &QEventLoop::quit); // the timer is deleted meanwhile
        });
        nested.exec();
        QTimer::singleShot(5, &outer, &QEventLoop::quit);
    });
    outer.exec();
    EXPECT_EQ(ticks, 1);
}

} // namespace
} // namespace dwellkey
