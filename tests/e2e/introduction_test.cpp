// SPDX-License-Identifier: MIT
// The first minutes of somebody who has never seen the program.
#include "end_to_end.h"

#include <optional>

namespace dwellkey::e2e {

class Introduction : public EndToEnd {};

TEST_P(Introduction, keysHeldThere_fillItsBar_andQuitNobody) {
    Settings settings;
    settings.isFirstLaunch = true;
    settings.delay = 1.0;
    Dwellkey dwellkey(desktop, settings);
    std::optional<Window> window;
    screen.await("the introduction to be active", [&] {
        window = screen.windowTitled("Dwellkey");
        return window && screen.activeWindow() == window && screen.focusedWindow() == window;
    });
    dwellkey.awaitGuarding();
    const Rectangle place = screen.geometry(*window);
    const Picture before = screen.picture(place);
    pressShortcut();
    screen.await("the bar in the introduction to pass its middle", [&] {
        const auto changed = screen.picture(place).differences(before);
        return changed && changed->width > place.width / 2;
    });
    EXPECT_FALSE(screen.panel()) << "the panel covers the introduction";
    const TimePoint end = Clock::now() + settings.delayInMilliseconds() + afterthought;
    EXPECT_FALSE(screen.happensBefore(end, [&] {
        return !dwellkey.process().isRunning() || !screen.isViewable(*window) || screen.panel();
    })) << "a rehearsal ended the program, closed its window or showed the panel";
    keyboard.releaseAll();

    // With the introduction gone the same keys mean the application in front.
    screen.requestClose(*window);
    screen.await("the introduction to go", [&] { return !screen.isViewable(*window); });
    Probe other(desktop);
    screen.await("the other window to be active",
                 [&] { return screen.activeWindow() == other.window(); });
    holdToTheEnd();
    EXPECT_EQ(other.process().awaitEnd(), (ExitStatus{0, {}}));
}

INSTANTIATE_TEST_SUITE_P(EndToEnd, Introduction, everyWindowManager, parameterName);

} // namespace dwellkey::e2e
