// SPDX-License-Identifier: MIT
#include "app/termination.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <string_view>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace dwellkey {
namespace {

// A signal handler may do next to nothing: it writes here, and the loop wakes up.
int wakeUp = -1;

// An end in order takes milliseconds. Whatever holds it up for longer may do so without end, and
// the keys that we have taken would reach nobody.
constexpr itimerspec patience{{}, {1, 700'000'000}};
timer_t lastResort{};
volatile std::sig_atomic_t isAskedToEnd = 0;

extern "C" void endAtOnce(int /*number*/) {
    constexpr std::string_view message =
        "Dwellkey was asked to end and something holds it up: it ends at once.\n";
    [[maybe_unused]] const auto written = write(STDERR_FILENO, message.data(), message.size());
    _exit(EXIT_FAILURE);
}

/// The kernel keeps the time: it needs nobody in this process who still listens.
void prepareLastResort() {
    struct sigaction action {};
    action.sa_handler = endAtOnce;
    sigaction(SIGALRM, &action, nullptr);
    timer_create(CLOCK_MONOTONIC, nullptr, &lastResort); // gives a SIGALRM
}

constexpr auto signals = std::to_array({SIGTERM, SIGINT, SIGHUP});

extern "C" void noteSignal(int /*number*/) {
    const int savedErrno = errno;
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(wakeUp, &one, sizeof one);
    if (isAskedToEnd == 0) { // asking again gives no further time
        isAskedToEnd = 1;
        timer_settime(lastResort, 0, &patience, nullptr);
    }
    errno = savedErrno;
}

std::function<void()> suddenExit;

void noteExit() {
    if (const auto ended = std::exchange(suddenExit, nullptr)) {
        ended();
    }
}

void setHandler(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int number : signals) {
        struct sigaction inherited {};
        sigaction(number, nullptr, &inherited);
        if (inherited.sa_handler != SIG_IGN) { // as nohup wants it
            sigaction(number, &action, nullptr);
        }
    }
}

} // namespace

void catchTerminationSignals() {
    wakeUp = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    prepareLastResort();
    setHandler(noteSignal);
}

Subscription onTerminationSignal(RunLoop& runLoop, std::function<void()> terminate) {
    auto watch =
        std::make_shared<Subscription>(runLoop.watch(wakeUp, [terminate = std::move(terminate)] {
            std::uint64_t count = 0;
            [[maybe_unused]] const auto bytes = read(wakeUp, &count, sizeof count);
            terminate();
        }));
    return Subscription([watch] {
        setHandler(SIG_DFL);
        watch->cancel();
        close(std::exchange(wakeUp, -1));
    });
}

Subscription onRelease(Platform& platform, std::function<void()> released) {
    constexpr std::chrono::milliseconds interval{20}; // between two looks at the keys
    return platform.runLoop.repeat(interval, [&platform, released = std::move(released)] {
        if (!platform.hotKeys.confirmPressed()) {
            released();
        }
    });
}

Subscription onSuddenExit(std::function<void()> ended) {
    suddenExit = std::move(ended);
    std::atexit(noteExit);
    return Subscription([] { suddenExit = nullptr; });
}

} // namespace dwellkey
