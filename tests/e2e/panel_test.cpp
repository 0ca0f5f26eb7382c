// SPDX-License-Identifier: MIT
// The hold panel on a real screen: what it shows, and what it leaves alone.
#include "end_to_end.h"

#include <cmath>

namespace dwellkey::e2e {

namespace {

constexpr int panelWidth = 500;
constexpr int panelHeight = 130;
constexpr int margin = 24;
constexpr int trackWidth = panelWidth - 2 * margin;

/// The bar in a picture of the panel: what differs from the backdrop below the title.
std::optional<Rectangle> fillIn(const Picture& panel) {
    const int scale = panel.width() / panelWidth;
    const Rectangle below{margin * scale / 2, panel.height() * 5 / 8,
                          panel.width() - margin * scale, panel.height() * 2 / 8};
    const Colour backdrop = panel.at(below.x, below.y);
    return panel.boundingBox(below, [&](Colour colour) { return distance(colour, backdrop) > 60; });
}

} // namespace

class Panel : public EndToEnd {
protected:
    const Settings settings{.delay = 3.0};
    const Milliseconds delay = settings.delayInMilliseconds();
    const Milliseconds busyMachine{1000}; // how far the picture may lag behind the time

    Picture pictureOfPanel() { return screen.picture(screen.geometry(screen.awaitPanel())); }

    /// Checks the bar at a part of the hold: never ahead of the time, and not far behind it.
    void expectFillAt(double moment, TimePoint down, int scale = 1) {
        ASSERT_TRUE(panelStaysUntil(down + part(moment, delay)));
        const TimePoint before = Clock::now();
        const Picture picture = pictureOfPanel();
        const TimePoint after = Clock::now();
        picture.save(testName() + "-" + std::to_string(std::lround(moment * 100)));
        const auto widthAt = [&](TimePoint time) {
            return trackWidth * scale * std::chrono::duration<double>(time - down) / delay;
        };
        const auto fill = fillIn(picture);
        const int width = fill ? fill->width : 0;
        EXPECT_LE(width, widthAt(after) + 1.0 * scale);
        EXPECT_GE(width, widthAt(before - busyMachine) - 4.0 * scale);
        if (fill) {
            EXPECT_NEAR(fill->x, margin * scale, scale) << "the bar grows from the left margin";
        }
    }
};

TEST_P(Panel, hold_takesNoFocusFromTheApplication) {
    Probe probe(desktop, {"--text"});
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    const auto focused = screen.focusedWindow();
    probe.forget();
    const TimePoint down = beginHold();
    EXPECT_TRUE(panelStaysUntil(down + delay / 2));
    EXPECT_EQ(screen.focusedWindow(), focused);
    EXPECT_EQ(screen.activeWindow(), probe.window());
    keyboard.releaseAll();
    screen.awaitNoPanel();
    keyboard.tap(key::x);
    probe.awaitPresses(key::x, 1); // all focus events that there were have arrived before
    for (const auto& event : probe.events("focus-out")) {
        EXPECT_EQ(event.mode, "grab");
    }
    EXPECT_EQ(screen.focusedWindow(), focused);
}

TEST_P(Panel, hold_standsAboveAFullscreenWindow) {
    const Probe probe(desktop, {"--fullscreen"});
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    const TimePoint down = beginHold();
    const Window panel = screen.awaitPanel();
    EXPECT_TRUE(screen.isAbove(panel, probe.window()));
    EXPECT_EQ(screen.geometry(probe.window()), (Rectangle{0, 0, 1280, 800}));
    expectFillAt(0.5, down); // seen on the screen, not only in the stacking order
    screen.picture().save(testName());
}

TEST_P(Panel, hold_isCentredAndTheBarFollowsTheTime) {
    const Probe probe(desktop);
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    const TimePoint down = beginHold();
    const auto place = screen.geometry(screen.awaitPanel());
    EXPECT_EQ(place, (Rectangle{(1280 - panelWidth) / 2, (800 - panelHeight) / 2, panelWidth,
                                panelHeight}));
    for (const double moment : {0.0, 0.5, 0.9}) {
        expectFillAt(moment, down);
    }
}

TEST_P(Panel, screenOfTwiceTheDensity_scalesThePanel) {
    const Probe probe(desktop);
    const Dwellkey dwellkey(desktop, settings, {{"QT_SCALE_FACTOR", "2"}});
    dwellkey.awaitGuarding();
    const TimePoint down = beginHold();
    const auto place = screen.geometry(screen.awaitPanel());
    EXPECT_EQ(place.width, 2 * panelWidth);
    EXPECT_EQ(place.height, 2 * panelHeight);
    expectFillAt(0.5, down, 2);
}

TEST_P(Panel, darkDesktop_showsLightTextOnDark) {
    writeFile(desktop.folder("config") / "kdeglobals",
              "[Colors:Window]\nBackgroundNormal=35,38,41\nForegroundNormal=252,252,252\n"
              "[Colors:View]\nBackgroundNormal=27,30,32\nForegroundNormal=252,252,252\n"
              "[Colors:Selection]\nBackgroundNormal=61,174,233\nForegroundNormal=252,252,252\n"
              "[Colors:Button]\nBackgroundNormal=49,54,59\nForegroundNormal=252,252,252\n");
    const Probe probe(desktop);
    const Dwellkey dwellkey(desktop, settings,
                            {{"XDG_CURRENT_DESKTOP", "KDE"}, {"KDE_SESSION_VERSION", "5"}});
    dwellkey.awaitGuarding();
    const TimePoint down = beginHold();
    expectFillAt(0.5, down);
    const Picture panel = pictureOfPanel();
    EXPECT_LT(lightness(panel.at(margin, margin / 2)), 100) << "the backdrop is dark";
    const auto title = panel.boundingBox({margin, 0, trackWidth, panelHeight / 2},
                                         [](Colour colour) { return lightness(colour) > 200; });
    ASSERT_TRUE(title.has_value());
    EXPECT_GT(title->width, trackWidth / 2) << "the title is light";
}

INSTANTIATE_TEST_SUITE_P(Each, Panel, everyWindowManager, parameterName);

} // namespace dwellkey::e2e
