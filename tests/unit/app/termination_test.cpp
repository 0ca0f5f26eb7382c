// SPDX-License-Identifier: MIT
#include "app/termination.h"

#include "platform/fake/fake_run_loop.h"

#include <gtest/gtest.h>

#include <csignal>
#include <unistd.h>

namespace dwellkey {
namespace {

TEST(TerminationDeathTest, askedToEndWhileTheLoopIsStuck_endsAllTheSame) {
    const auto stayInTheMiddleOfThings = [] {
        catchTerminationSignals();
        FakeClock clock;
        FakeRunLoop loop(clock);
        const Subscription termination = onTerminationSignal(loop, [] {});
        raise(SIGTERM);
        for (;;) {
            pause();
        }
    };
    EXPECT_EXIT(stayInTheMiddleOfThings(), testing::ExitedWithCode(1), "something holds it up");
}

} // namespace
} // namespace dwellkey
