// SPDX-License-Identifier: MIT
// How fast a hold is seen, let go of, and acted on.
#include "desktop/measures.h"
#include "desktop/sxhkd.h"
#include "desktop/window_events.h"
#include "harness/dwellkey_program.h"
#include "harness/failure.h"
#include "harness/probe.h"

#include <thread>

namespace dwellkey::bench {

namespace {

using namespace e2e;

constexpr int completedHolds = 40;
constexpr int releasedHolds = 60;
constexpr int commands = 60;
constexpr Goal panelGoal{10.0, 33.0};
constexpr Goal goneGoal{10.0, {}};
constexpr Goal requestGoal{12.0, {}};

struct Latencies {
    std::vector<double> pressToPanel;
    std::vector<double> releaseToGone;
    std::vector<double> fullToRequest;
};

TimePoint pressQuit(Keyboard& keyboard) {
    keyboard.press(key::leftControl);
    return keyboard.press(key::q);
}

/// Held until the application in front was asked to close, which it does.
void complete(Desktop& desktop, WindowEvents& windows, const Dwellkey& dwellkey,
              std::chrono::nanoseconds delay, Latencies& latencies) {
    Probe application(desktop);
    dwellkey.awaitGuarding();
    windows.forget();
    const auto pressed = pressQuit(desktop.keyboard());
    const auto panel = windows.awaitPanel();
    application.awaitCount("close-request", 1);
    const auto overDelay = application.events("close-request").front().time - pressed - delay;
    if (overDelay.count() < 0) {
        throw Failure("the application was asked to close before the keys were held long enough");
    }
    windows.awaitGone(panel.window);
    desktop.keyboard().releaseAll();
    application.process().awaitEnd();
    latencies.pressToPanel.push_back(milliseconds(panel.time - pressed));
    latencies.fullToRequest.push_back(milliseconds(overDelay));
}

/// Let go of after some frames; not always at the same phase of the hold's ticks.
void letGo(Desktop& desktop, WindowEvents& windows, int number, Latencies& latencies) {
    constexpr Milliseconds shortest{60};
    constexpr std::chrono::microseconds step{300};
    windows.forget();
    const auto pressed = pressQuit(desktop.keyboard());
    const auto panel = windows.awaitPanel();
    std::this_thread::sleep_until(pressed + shortest + number * step);
    const auto released = Clock::now();
    desktop.keyboard().release(key::q);
    const auto gone = windows.awaitGone(panel.window);
    desktop.keyboard().releaseAll();
    latencies.pressToPanel.push_back(milliseconds(panel.time - pressed));
    latencies.releaseToGone.push_back(milliseconds(gone.time - released));
}

Latencies measureDwellkey(Desktop& desktop) {
    Latencies latencies;
    WindowEvents windows(desktop.server().display());
    Settings settings;
    {
        // Without another window openbox goes on naming the closed one as active, and the next one
        // gets its number: nobody could tell when that has become active.
        const Probe background(desktop);
        const Dwellkey dwellkey(desktop, settings);
        for (int hold = 0; hold < completedHolds; ++hold) {
            complete(desktop, windows, dwellkey, settings.delayInMilliseconds(), latencies);
        }
    }
    settings.delay = 2.0; // longer than any of the holds below
    Probe application(desktop);
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    for (int hold = 0; hold < releasedHolds; ++hold) {
        letGo(desktop, windows, hold, latencies);
    }
    if (application.count("close-request") != 0) {
        throw Failure("the application was asked to close though the keys were let go of");
    }
    return latencies;
}

} // namespace

void measureHolds(Report& report) {
    Desktop desktop;
    const Latencies latencies = measureDwellkey(desktop);
    Row command{"  reference: sxhkd, key press to command", "ms", {}};
    Sxhkd sxhkd(desktop);
    for (int press = 0; press < commands; ++press) {
        command.samples.push_back(sxhkd.pressToCommand());
    }
    report.add({"key press to panel mapped", "ms", latencies.pressToPanel, panelGoal});
    report.add(command);
    report.add({"bar full to close request", "ms", latencies.fullToRequest, requestGoal});
    report.add({"key release to panel gone", "ms", latencies.releaseToGone, goneGoal});
}

} // namespace dwellkey::bench
