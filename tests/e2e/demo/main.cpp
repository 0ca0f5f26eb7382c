// SPDX-License-Identifier: MIT
// dwellkey-demo: a hold to the end and one that is let go early, on a private display.
#include "harness/desktop.h"
#include "harness/dwellkey_program.h"
#include "harness/failure.h"

#include <cstdlib>
#include <iostream>
#include <memory>

namespace dwellkey::e2e {
namespace {

const Settings settings{.delay = 2.0};
const auto delay = settings.delayInMilliseconds();

/// Prints each event with its time since the keys went down.
class Timeline {
public:
    explicit Timeline(TimePoint start) : start_(start) {}

    void note(const std::string& what) const {
        const auto passed = std::chrono::duration_cast<Milliseconds>(Clock::now() - start_);
        std::cout.width(8);
        std::cout << passed.count() << " ms  " << what << std::endl; // NOLINT: seen as it happens
    }

private:
    TimePoint start_;
};

bool isInstalled(const std::string& program) {
    return std::filesystem::exists("/usr/bin/" + program);
}

/// An editor in front of the user.
std::unique_ptr<ChildProcess> openEditor(Desktop& desktop) {
    const auto [program, windowClass] =
        isInstalled("mousepad") ? std::pair("mousepad", "Mousepad") : std::pair("xterm", "XTerm");
    auto editor = desktop.start({program});
    const Window window = desktop.screen().awaitWindowOfClass(windowClass);
    desktop.screen().activate(window);
    std::cout << program << " is in front" << std::endl; // NOLINT
    return editor;
}

Timeline holdUntil(Desktop& desktop, double part, const std::string& screenshot) {
    desktop.keyboard().press(key::leftControl);
    const TimePoint down = desktop.keyboard().press(key::q);
    const Timeline timeline(down);
    timeline.note("Ctrl+Q is down");
    desktop.screen().awaitPanel();
    timeline.note("the panel is shown");
    const auto moment = down + std::chrono::duration_cast<Milliseconds>(delay * part);
    if (desktop.screen().happensBefore(moment, [&] { return !desktop.screen().panel(); })) {
        throw Failure("the panel went away while the keys were held");
    }
    timeline.note("screenshot: " + desktop.screen().picture().save(screenshot).string());
    return timeline;
}

void showFullHold(Desktop& desktop, ChildProcess& editor) {
    std::cout << "\nHeld to the end (" << delay.count() << " ms):\n";
    const Timeline timeline = holdUntil(desktop, 0.5, "demo-hold");
    desktop.screen().awaitNoPanel();
    timeline.note("the bar is full: the application is asked to quit, the panel is gone");
    editor.awaitEnd();
    timeline.note("the application is gone");
    desktop.keyboard().releaseAll();
    timeline.note("the keys are up");
}

void showEarlyRelease(Desktop& desktop, ChildProcess& editor) {
    std::cout << "\nLet go early:\n";
    const Timeline timeline = holdUntil(desktop, 0.5, "demo-release");
    desktop.keyboard().releaseAll();
    timeline.note("the keys are up");
    desktop.screen().awaitNoPanel();
    timeline.note("the panel is gone");
    if (happensBefore(Clock::now() + delay, [&] { return !editor.isRunning(); })) {
        throw Failure("the application quit although the keys were let go");
    }
    timeline.note("the application lives");
}

void show() {
    Desktop desktop;
    auto editor = openEditor(desktop);
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    std::cout << "Dwellkey guards Ctrl+Q" << std::endl; // NOLINT
    showFullHold(desktop, *editor);
    editor = openEditor(desktop);
    dwellkey.awaitGuarding();
    showEarlyRelease(desktop, *editor);
}

} // namespace
} // namespace dwellkey::e2e

int main() {
    try {
        dwellkey::e2e::show();
    } catch (const std::exception& failure) {
        std::cerr << "dwellkey-demo: " << failure.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
