// SPDX-License-Identifier: MIT
#include "harness/probe.h"

#include "harness/failure.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace dwellkey::e2e {

namespace {

ProbeEvent parse(const std::string& line) {
    const auto json = nlohmann::json::parse(line);
    ProbeEvent event;
    event.kind = json.at("event");
    event.time = TimePoint(std::chrono::microseconds(json.at("time").get<std::int64_t>()));
    event.window = json.value("window", Window{XCB_NONE});
    event.role = json.value("role", "");
    event.key = json.value("key", 0);
    event.state = json.value("state", 0U);
    event.isAutoRepeat = json.value("repeat", false);
    event.mode = json.value("mode", "");
    return event;
}

std::vector<std::string> command(const std::vector<std::string>& options) {
    std::vector<std::string> arguments{Desktop::built("dwellkey-probe")};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return arguments;
}

} // namespace

Probe::Probe(Desktop& desktop, const std::vector<std::string>& options)
    : process_(desktop.start(command(options), {}, ChildProcess::Output::toPipe)) {
    awaitCount("ready", 1);
    for (const auto& event : events("window")) {
        if (event.role != "dialog") {
            windows_.push_back(event.window);
        }
    }
    awaitOnScreen(desktop.screen());
    forget();
}

void Probe::awaitOnScreen(const Screen& screen) {
    const auto opened = events("window");
    screen.await("the probe's windows to be managed", [&] {
        const auto managed = screen.managedWindows();
        return std::ranges::all_of(opened, [&](const ProbeEvent& event) {
            return std::ranges::find(managed, event.window) != managed.end();
        });
    });
    const auto& last = opened.back();
    if (last.role == "desktop") {
        return;
    }
    // A window manager may think that the user is busy with another window.
    screen.activate(last.window);
    screen.await("the probe to have the focus",
                 [&] { return screen.focusedWindow() == last.window; });
}

const std::vector<ProbeEvent>& Probe::events() {
    while (const auto line = process_->readLine()) {
        events_.push_back(parse(*line));
    }
    return events_;
}

std::vector<ProbeEvent> Probe::events(const std::string& kind) {
    std::vector<ProbeEvent> matching;
    std::ranges::copy_if(events(), std::back_inserter(matching),
                         [&](const ProbeEvent& event) { return event.kind == kind; });
    return matching;
}

std::size_t Probe::presses(xcb_keycode_t key) {
    return static_cast<std::size_t>(std::ranges::count_if(events(), [&](const ProbeEvent& event) {
        return event.kind == "key-press" && event.key == key && !event.isAutoRepeat;
    }));
}

void Probe::awaitCount(const std::string& kind, std::size_t expected) {
    await("the probe to report " + std::to_string(expected) + " times: " + kind,
          [&] { return count(kind) >= expected; }, {process_->outputDescriptor()});
}

void Probe::awaitPresses(xcb_keycode_t key, std::size_t expected) {
    await("the probe to receive key " + std::to_string(key),
          [&] { return presses(key) >= expected; }, {process_->outputDescriptor()});
}

bool Probe::staysWithout(const std::string& kind, TimePoint end) {
    return !happensBefore(end, [&] { return count(kind) > 0; }, {process_->outputDescriptor()});
}

void Probe::forget() {
    events();
    events_.clear();
}

} // namespace dwellkey::e2e
