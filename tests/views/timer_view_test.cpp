// SPDX-License-Identifier: MIT
#include "hold/panel/timer_view.h"

#include "offscreen.h"
#include "platform/fake/fake_platform.h"

#include <QImage>
#include <QLabel>
#include <QMouseEvent>

#include <algorithm>
#include <cmath>

namespace dwellkey {
namespace {

double luminance(QColor colour) {
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
           + 0.0722 * linear(colour.blueF());
}

/// From 1 (the same) to 21 (black on white).
double contrast(QColor one, QColor other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

class TimerViewTest : public testing::Test {
protected:
    void turn() {
        platform.runLoop.runPosted();
        QApplication::processEvents();
    }
    void appear() {
        timer.isTimerViewVisible = true;
        view.open();
        turn();
    }
    void disappear() {
        timer.isTimerViewVisible = false;
        turn();
    }
    [[nodiscard]] QImage picture(QColor behind) {
        QImage image(view.size(), QImage::Format_RGB32);
        image.fill(behind);
        view.render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }
    /// Of the pixels in the bar's colour.
    [[nodiscard]] QRect fill() {
        const QImage image = picture(Qt::white);
        QRect box;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == accent) {
                    box |= QRect(x, y, 1, 1);
                }
            }
        }
        return box;
    }
    void drag(QPoint from, QPoint to) {
        const auto send = [&](QEvent::Type type, QPoint at, Qt::MouseButtons buttons) {
            QMouseEvent event(type, title.mapFromGlobal(at), at,
                              type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons,
                              Qt::NoModifier);
            QApplication::sendEvent(&title, &event);
        };
        send(QEvent::MouseButtonPress, from, Qt::LeftButton);
        send(QEvent::MouseMove, to, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, to, Qt::NoButton);
        send(QEvent::MouseMove, from, Qt::NoButton);
    }
    void usePalette(QColor window, QColor text) {
        QPalette palette(window);
        palette.setColor(QPalette::WindowText, text);
        palette.setColor(QPalette::Highlight, accent);
        view.setPalette(palette);
    }
    static testing::AssertionResult isCentredOn(const QWidget& widget, const QRect& screen) {
        const QPoint off = widget.geometry().center() - screen.center();
        return off.manhattanLength() <= 2
                   ? testing::AssertionSuccess()
                   : testing::AssertionFailure() << "off by " << off.x() << ", " << off.y();
    }

    const QColor accent{0x11, 0x88, 0xee};
    FakePlatform platform;
    AlertManager alertManager;
    PreferencesViewModel preferences{platform.platform(), alertManager};
    TimerManager timer{platform.platform(), preferences};
    TimerView view{timer, platform.runLoop, platform.panelSupport};
    QLabel& title = *view.findChild<QLabel*>();
};

TEST_F(TimerViewTest, bar_fillsFromTheLeftByTheProgress) {
    usePalette(Qt::white, Qt::black);
    appear();
    EXPECT_TRUE(fill().isEmpty());
    timer.progress = 1.0;
    turn();
    const QRect full = fill();
    EXPECT_EQ(full.height(), 6);
    EXPECT_NEAR(full.left(), 24, 1);
    EXPECT_NEAR(full.right(), view.width() - 1 - 24, 1);
    timer.progress = 0.5;
    turn();
    EXPECT_EQ(fill().left(), full.left());
    EXPECT_NEAR(fill().width(), full.width() / 2.0, 1.5);
    timer.progress = 1.3; // the last tick comes late
    turn();
    EXPECT_NEAR(fill().right(), full.right(), 1);
}

TEST_F(TimerViewTest, panel_comesAndGoesWithTheHold) {
    view.prepare();
    EXPECT_FALSE(view.isVisible());
    appear();
    EXPECT_TRUE(view.isVisible());
    disappear();
    EXPECT_FALSE(view.isVisible());
    view.open(); // the hold ended before the window was asked for
    turn();
    EXPECT_FALSE(view.isVisible());
}

TEST_F(TimerViewTest, changesOfOneTurn_areShownTogetherOnce) {
    appear();
    for (const double progress : {0.1, 0.2, 0.3}) {
        timer.progress = progress;
    }
    timer.timerViewTitle = "Hold to Close Window";
    EXPECT_EQ(platform.runLoop.postedCount(), 1U);
    turn();
    EXPECT_EQ(title.text(), QStringLiteral("Hold to Close Window"));
}

TEST_F(TimerViewTest, eachAppearance_isCentredOnTheScreenOfTheActiveWindow) {
    platform.panelSupport.activeCentre = PanelSupport::Point{1100, 50};
    appear();
    EXPECT_TRUE(isCentredOn(view, secondScreen));
    disappear();
    platform.panelSupport.activeCentre = PanelSupport::Point{500, 50};
    appear();
    EXPECT_TRUE(isCentredOn(view, primaryScreen));
    disappear();
    platform.panelSupport.activeCentre = PanelSupport::Point{5000, 5000}; // off every screen
    appear();
    EXPECT_TRUE(isCentredOn(view, primaryScreen));
}

TEST_F(TimerViewTest, draggedByItsTitle_itStaysThereUntilItDisappears) {
    appear();
    const QPoint start = view.pos();
    drag(start + QPoint(250, 60), start + QPoint(280, 20));
    EXPECT_EQ(view.pos(), start + QPoint(30, -40));
    timer.timerViewTitle = "Hold to Close Window";
    view.open(); // the other shortcut takes over
    turn();
    EXPECT_EQ(view.pos(), start + QPoint(30, -40));
    disappear();
    appear();
    EXPECT_TRUE(isCentredOn(view, primaryScreen));
}

// Here the toolkit makes every shown window the active one; whether a client really keeps its focus
// shows on a real server only, to which these are our words.
TEST_F(TimerViewTest, window_asksForNoFocus) {
    appear();
    EXPECT_TRUE(view.windowFlags().testFlag(Qt::BypassWindowManagerHint));
    EXPECT_TRUE(view.windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_TRUE(view.testAttribute(Qt::WA_ShowWithoutActivating));
    for (const QWidget* part : view.findChildren<QWidget*>()) {
        EXPECT_EQ(part->focusPolicy(), Qt::NoFocus);
    }
}

TEST_F(TimerViewTest, longTitle_widensThePanelAndIsNotCutOff) {
    appear();
    const int usual = view.width();
    timer.timerViewTitle = "Hold to Close Window Hold to Close Window";
    turn();
    EXPECT_GT(view.width(), usual);
    EXPECT_GE(title.width(), title.sizeHint().width());
    disappear();
    appear();
    EXPECT_TRUE(isCentredOn(view, primaryScreen));
}

TEST_F(TimerViewTest, title_isReadableInEveryPaletteAndOnEveryBackground) {
    for (const bool composited : {false, true}) {
        platform.panelSupport.composited = composited;
        for (const bool dark : {false, true}) {
            usePalette(dark ? QColor(0x2b, 0x2b, 0x2b) : QColor(0xef, 0xef, 0xef),
                       dark ? Qt::white : Qt::black);
            disappear();
            appear();
            for (const QColor behind : {Qt::white, Qt::black}) {
                const QImage image = picture(behind);
                const QColor backdrop = image.pixelColor(view.width() / 2, 16);
                double best = 1;
                for (int x = title.x(); x < title.geometry().right(); ++x) {
                    const QColor pixel = image.pixelColor(x, title.geometry().center().y());
                    best = std::max(best, contrast(pixel, backdrop));
                }
                EXPECT_GE(best, 4.5) << composited << dark << behind.name().toStdString();
            }
        }
    }
}

TEST_F(TimerViewTest, compositorThatComesOrGoes_isFollowedAtTheNextAppearance) {
    appear();
    EXPECT_EQ(platform.panelSupport.keptAbove.size(), 1U);
    EXPECT_TRUE(platform.panelSupport.blurred.empty());
    EXPECT_FALSE(view.testAttribute(Qt::WA_TranslucentBackground)) << "black corners";
    disappear();
    platform.panelSupport.composited = true;
    appear();
    EXPECT_EQ(platform.panelSupport.keptAbove.size(), 2U);
    EXPECT_EQ(platform.panelSupport.keptAbove.back(), view.winId());
    EXPECT_EQ(platform.panelSupport.blurred.size(), 1U);
    EXPECT_TRUE(view.testAttribute(Qt::WA_TranslucentBackground));
    disappear();
    appear();
    EXPECT_EQ(platform.panelSupport.keptAbove.size(), 2U) << "a new window for no reason";
}

} // namespace
} // namespace dwellkey
