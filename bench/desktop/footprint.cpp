// SPDX-License-Identifier: MIT
// What the program costs while nobody quits anything, and while somebody does.
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
using namespace std::chrono_literals;

constexpr auto settling = 2s; // after which a started program has nothing left to do
constexpr auto idleTime = 30s;
constexpr auto holdTime = 3s;
constexpr double longerThanAnyHold = 60.0; // seconds
constexpr int holdsInARow = 200;
constexpr int longHolds = 3;

constexpr Goal noWakeUps{{}, 0.0};
constexpr Goal residentGoal{32.0, {}};
constexpr Goal privateGoal{5.0, {}};
constexpr Goal shareGoal{5.0, {}};
constexpr Goal growthGoal{0.25, {}}; // what an allocator may round up once

std::string seconds(std::chrono::seconds time) {
    return std::to_string(time.count()) + " s";
}

/// Three programs that wait, side by side.
struct Waiting {
    pid_t dwellkey;
    pid_t bareWidgets;
    pid_t sxhkd;
};

void measureIdle(Report& report, const Waiting& programs) {
    const WakeUps dwellkey(programs.dwellkey);
    const WakeUps bareWidgets(programs.bareWidgets);
    const WakeUps sxhkd(programs.sxhkd);
    std::this_thread::sleep_for(idleTime);
    const auto add = [&](const std::string& what, const WakeUps& wakeUps, Goal goal = {}) {
        report.add({what, "times", {static_cast<double>(wakeUps.count())}, goal});
    };
    add("wake-ups in " + seconds(idleTime) + " idle", dwellkey, noWakeUps);
    add("  reference: bare widgets program", bareWidgets);
    add("  reference: sxhkd", sxhkd);
}

void measureMemory(Report& report, const Waiting& programs) {
    const auto add = [&](const std::string& what, double memory, Goal goal = {}) {
        report.add({what, "MB", {memory}, goal});
    };
    add("resident memory, idle", residentMemory(programs.dwellkey), residentGoal);
    add("  reference: bare widgets program", residentMemory(programs.bareWidgets));
    add("  reference: sxhkd", residentMemory(programs.sxhkd));
    add("private dirty memory, idle", privateMemory(programs.dwellkey), privateGoal);
    add("  reference: bare widgets program", privateMemory(programs.bareWidgets));
    add("  reference: sxhkd", privateMemory(programs.sxhkd));
}

void hold(Desktop& desktop, WindowEvents& windows, std::chrono::nanoseconds time) {
    desktop.keyboard().press(key::leftControl);
    const auto pressed = desktop.keyboard().press(key::q);
    const auto panel = windows.awaitPanel();
    std::this_thread::sleep_until(pressed + time);
    desktop.keyboard().releaseAll();
    windows.awaitGone(panel.window);
}

void measureGrowth(Report& report, Desktop& desktop, WindowEvents& windows, pid_t dwellkey) {
    constexpr auto briefly = 20ms;
    hold(desktop, windows, briefly); // whatever the first one loads is no growth
    const double before = privateMemory(dwellkey);
    for (int number = 0; number < holdsInARow; ++number) {
        hold(desktop, windows, briefly);
    }
    const std::string after = ", after " + std::to_string(holdsInARow) + " holds";
    report.add({"resident memory" + after, "MB", {residentMemory(dwellkey)}, residentGoal});
    report.add({"private dirty memory" + after, "MB", {privateMemory(dwellkey)}, privateGoal});
    report.add(
        {"growth of it, first hold to last", "MB", {privateMemory(dwellkey) - before}, growthGoal});
}

void measureProcessor(Report& report, Desktop& desktop, WindowEvents& windows, pid_t dwellkey) {
    constexpr double percent = 100.0;
    Row ours{"processor share in a hold of " + seconds(holdTime), "%", {}, shareGoal};
    Row server{"  for comparison: the display server's", "%", {}};
    const pid_t serverProcess = desktop.server().process().pid();
    for (int number = 0; number < longHolds; ++number) {
        const auto before = processorTime(dwellkey);
        const auto serverBefore = processorTime(serverProcess);
        hold(desktop, windows, holdTime);
        ours.samples.push_back(percent * milliseconds(processorTime(dwellkey) - before)
                               / milliseconds(holdTime));
        server.samples.push_back(percent * milliseconds(processorTime(serverProcess) - serverBefore)
                                 / milliseconds(holdTime));
    }
    report.add(ours);
    report.add(server);
}

} // namespace

void measureFootprint(Report& report) {
    Desktop desktop;
    Probe application(desktop);
    WindowEvents windows(desktop.server().display());
    Settings settings;
    settings.delay = longerThanAnyHold;
    Dwellkey dwellkey(desktop, settings);
    const Sxhkd sxhkd(desktop);
    const auto bareWidgets = desktop.start({Desktop::built("dwellkey-bench-bare-widgets")});
    dwellkey.awaitGuarding();
    std::this_thread::sleep_for(settling);
    const Waiting programs{dwellkey.process().pid(), bareWidgets->pid(), sxhkd.pid()};
    measureMemory(report, programs);
    measureIdle(report, programs);
    measureGrowth(report, desktop, windows, programs.dwellkey);
    measureProcessor(report, desktop, windows, programs.dwellkey);
    if (application.count("close-request") != 0) {
        throw Failure("the application was asked to close though the keys were let go of");
    }
}

} // namespace dwellkey::bench
