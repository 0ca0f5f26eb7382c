// SPDX-License-Identifier: MIT
// How soon a started program guards.
#include "desktop/measures.h"
#include "desktop/process_cost.h"
#include "desktop/sxhkd.h"
#include "desktop/window_events.h"
#include "harness/dwellkey_program.h"
#include "harness/failure.h"
#include "harness/probe.h"

#include <string>
#include <thread>

namespace dwellkey::bench {

namespace {

using namespace e2e;

constexpr int starts = 30;
constexpr Goal liveGoal{120.0, {}};

struct Starts {
    Row live{"start to hot keys live", "ms", {}, liveGoal};
    Row window{"start to first window created", "ms", {}};
    Row firstPanel{"first key press to panel mapped", "ms", {}};
    Row bare{"  reference: bare widgets program to first turn", "ms", {}};
    Row sxhkd{"  reference: sxhkd to hot keys live", "ms", {}};
};

void startDwellkey(Desktop& desktop, WindowEvents& windows, Starts& rows) {
    constexpr int helperWidth = 16; // the toolkit's own helpers, which nobody sees, are smaller
    windows.forget();
    const auto before = Clock::now();
    Dwellkey dwellkey(desktop);
    awaitGrab(desktop.screen(), dwellkey.process(), key::q, XCB_MOD_MASK_CONTROL);
    const auto live = Clock::now();
    const auto window = windows.await("the first window", [&](const WindowEvent& event) {
        return event.kind == WindowEvent::Kind::created && event.width > helperWidth;
    });
    if (window.time < live) {
        throw Failure("a window was created before the hot keys were live");
    }
    const auto pressed = [&] {
        desktop.keyboard().press(key::leftControl);
        return desktop.keyboard().press(key::q);
    }();
    const auto panel = windows.awaitPanel();
    desktop.keyboard().releaseAll();
    windows.awaitGone(panel.window);
    rows.live.samples.push_back(milliseconds(live - before));
    rows.window.samples.push_back(milliseconds(window.time - before));
    rows.firstPanel.samples.push_back(milliseconds(panel.time - pressed));
}

double startBareWidgets(Desktop& desktop) {
    const auto before = Clock::now();
    const auto program = desktop.start({Desktop::built("dwellkey-bench-bare-widgets")}, {},
                                       ChildProcess::Output::toPipe);
    std::optional<std::string> line;
    await("the bare program's first turn", [&] { return (line = program->readLine()).has_value(); },
          {program->outputDescriptor()});
    const TimePoint turned(std::chrono::microseconds(std::stoll(*line)));
    return milliseconds(turned - before);
}

} // namespace

void awaitGrab(const Screen& screen, ChildProcess& program, xcb_keycode_t key,
               std::uint16_t modifiers) {
    const auto end = Clock::now() + patience;
    while (!screen.isGrabbed(key, modifiers)) {
        if (Clock::now() > end || !program.isRunning()) {
            throw Failure("the program does not take its combination:\n" + program.log());
        }
        std::this_thread::sleep_for(Milliseconds(1)); // no event tells of a grab
    }
}

void measureStart(Report& report) {
    Desktop desktop;
    const Probe application(desktop);
    WindowEvents windows(desktop.server().display());
    Starts rows;
    for (int start = 0; start < starts; ++start) {
        startDwellkey(desktop, windows, rows);
        rows.bare.samples.push_back(startBareWidgets(desktop));
    }
    rows.sxhkd.samples.push_back(Sxhkd(desktop).startTime());
    for (const Row& row : {rows.live, rows.bare, rows.sxhkd, rows.window, rows.firstPanel}) {
        report.add(row);
    }
}

} // namespace dwellkey::bench
