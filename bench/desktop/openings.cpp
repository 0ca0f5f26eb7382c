// SPDX-License-Identifier: MIT
// How soon the preferences are there when the user starts the program again, and what a hundred
// openings leave behind.
#include "desktop/measures.h"
#include "desktop/process_cost.h"
#include "harness/dwellkey_program.h"
#include "harness/failure.h"
#include "harness/probe.h"

#include <string>

namespace dwellkey::bench {

namespace {

using namespace e2e;

constexpr int starts = 15;
constexpr int openingsInARow = 100;

constexpr Goal firstGoal{150.0, {}};
constexpr Goal againGoal{50.0, {}};
constexpr Goal growthGoal{0.5, {}}; // what allocators and the toolkit's caches round up once

/// From starting the program again to the window on the screen, in milliseconds.
double openPreferences(Desktop& desktop, const Screen& screen) {
    const auto before = Clock::now();
    const auto second = desktop.start({Desktop::built("dwellkey")});
    screen.await("the preferences to appear", [&] {
        const auto window = screen.windowTitled("Preferences");
        return window && screen.isViewable(*window);
    });
    const double taken = milliseconds(Clock::now() - before);
    second->awaitEnd();
    return taken;
}

void closePreferences(const Screen& screen) {
    screen.requestClose(*screen.windowTitled("Preferences"));
    screen.await("the preferences to go", [&] { return !screen.windowTitled("Preferences"); });
}

void measureFirst(Desktop& desktop, Row& first, Row& again) {
    Dwellkey dwellkey(desktop);
    dwellkey.awaitGuarding();
    first.samples.push_back(openPreferences(desktop, desktop.screen()));
    closePreferences(desktop.screen());
    again.samples.push_back(openPreferences(desktop, desktop.screen()));
    closePreferences(desktop.screen());
}

void measureGrowth(Report& report, Desktop& desktop) {
    Dwellkey dwellkey(desktop);
    dwellkey.awaitGuarding();
    const pid_t process = dwellkey.process().pid();
    const auto openAndClose = [&] {
        openPreferences(desktop, desktop.screen());
        closePreferences(desktop.screen());
    };
    openAndClose();
    openAndClose(); // whatever the first ones load is no growth
    const double before = privateMemory(process);
    for (int number = 0; number < openingsInARow; ++number) {
        openAndClose();
    }
    report.add({"resident memory, preferences closed again", "MB", {residentMemory(process)}});
    report.add({"growth of private memory in " + std::to_string(openingsInARow) + " openings",
                "MB",
                {privateMemory(process) - before},
                growthGoal});
}

} // namespace

void measureOpenings(Report& report) {
    Desktop desktop;
    const Probe application(desktop);
    Row first{"started again to preferences, first time", "ms", {}, firstGoal};
    Row again{"started again to preferences, again", "ms", {}, againGoal};
    for (int start = 0; start < starts; ++start) {
        measureFirst(desktop, first, again);
    }
    report.add(first);
    report.add(again);
    measureGrowth(report, desktop);
}

} // namespace dwellkey::bench
