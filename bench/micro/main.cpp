// SPDX-License-Identifier: MIT
// What the models cost by themselves, on the fake platform.
#include "allocation_counter.h"
#include "micro/hold_desktop.h"
#include "micro/reporter.h"

#include <algorithm>
#include <chrono>
#include <iostream>
#include <memory>
#include <string>

#include <unistd.h>

namespace dwellkey::bench {

namespace {

using namespace std::chrono_literals;
using benchmark::State;

constexpr std::size_t manyApplications = 10'000;
constexpr std::size_t storedApplications = 1'000;
constexpr double neverOver = 1e6; // seconds
constexpr double usualDelay = 2.0;
constexpr int repetitions = 15;
constexpr int coldIterations = 10;

/// Drives everything that was in the processor's caches out of them.
class CacheFlush {
public:
    void operator()() {
        for (std::size_t at = 0; at < ballast_.size(); at += lineSize) {
            ballast_[at] = static_cast<char>(ballast_[at] + 1);
        }
        benchmark::ClobberMemory();
    }

private:
    static constexpr std::size_t lineSize = 64;
    static constexpr long assumedCache = 32L * 1024 * 1024;

    static std::size_t cacheSize() {
        return static_cast<std::size_t>(std::max(sysconf(_SC_LEVEL3_CACHE_SIZE), assumedCache));
    }

    std::string ballast_ = std::string(2 * cacheSize(), '\0');
};

/// Times `work` with cold caches.
template <typename Work>
void runCold(State& state, Work work) {
    CacheFlush flush;
    for ([[maybe_unused]] auto iteration : state) {
        flush();
        const auto before = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(work());
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - before;
        state.SetIterationTime(taken.count());
    }
}

void tick(State& state) {
    HoldDesktop desktop(1, neverOver);
    desktop.hotKeys.press(HoldDesktop::q, HoldDesktop::command);
    desktop.runLoop.advance(10ms); // the loop has room for what it posts
    const std::size_t before = allocationCount();
    for ([[maybe_unused]] auto iteration : state) {
        desktop.runLoop.advance(10ms);
    }
    if (allocationCount() != before) {
        state.SkipWithError("a tick allocates memory");
    } else if (desktop.timer.progress.get() <= 0.0) {
        state.SkipWithError("no hold was running");
    }
}

void readClock(State& state) {
    for ([[maybe_unused]] auto iteration : state) {
        benchmark::DoNotOptimize(std::chrono::steady_clock::now());
    }
}

/// A press, which begins a hold, and the release that ends it.
void dispatch(State& state) {
    HoldDesktop desktop(1, usualDelay);
    const auto id = desktop.hotKeys.idOf({HoldDesktop::q, HoldDesktop::command});
    const HotKeyEvent pressed{kEventHotKeyPressed, id};
    const HotKeyEvent released{kEventHotKeyReleased, id};
    bool everyPressBeganAHold = true;
    for ([[maybe_unused]] auto iteration : state) {
        desktop.hotKeys.send(&pressed);
        everyPressBeganAHold = everyPressBeganAHold && desktop.timer.isTimerViewVisible.get();
        desktop.hotKeys.send(&released);
        desktop.runLoop.advance(0ns); // forgets the cancelled timer
    }
    if (!everyPressBeganAHold || desktop.timer.isTimerViewVisible.get()) {
        state.SkipWithError("presses and releases were not followed");
    }
}

void decideWarm(State& state) {
    const HoldDesktop desktop(manyApplications, usualDelay);
    const std::size_t before = allocationCount();
    bool isGuarded = true;
    for ([[maybe_unused]] auto iteration : state) {
        isGuarded = isGuarded && desktop.preferences.isFrontmostAppGuarded();
    }
    if (!isGuarded || allocationCount() != before) {
        state.SkipWithError(isGuarded ? "the decision allocates memory" : "it is wrong");
    }
}

void decideCold(State& state) {
    const HoldDesktop desktop(manyApplications, usualDelay);
    runCold(state, [&] { return desktop.preferences.isFrontmostAppGuarded(); });
}

/// What any walk over that many texts costs.
void searchTexts(State& state) {
    FakePlatform platform;
    std::vector<std::string> texts;
    for (const Url& url : installApplications(platform, manyApplications)) {
        texts.push_back(*platform.bundleReader.bundleIdentifier(url));
    }
    std::string missing = texts.front();
    missing.back() = '!';
    runCold(state, [&] { return std::ranges::find(texts, missing) == texts.end(); });
}

/// A platform whose settings list that many installed applications.
std::unique_ptr<FakePlatform> platformWithSettings() {
    auto platform = std::make_unique<FakePlatform>();
    std::vector<std::string> texts;
    for (const Url& url : installApplications(*platform, storedApplications)) {
        texts.push_back(url.absoluteString());
    }
    platform->userDefaults.set("appURLs", texts);
    return platform;
}

void loadSettings(State& state) {
    const auto platform = platformWithSettings();
    AlertManager alertManager;
    for ([[maybe_unused]] auto iteration : state) {
        const PreferencesViewModel preferences(platform->platform(), alertManager);
        if (preferences.apps().size() != storedApplications) {
            state.SkipWithError("applications of the list were lost");
        }
    }
}

void makeRecords(State& state) {
    FakePlatform platform;
    const auto urls = installApplications(platform, storedApplications);
    for ([[maybe_unused]] auto iteration : state) {
        for (const Url& url : urls) {
            benchmark::DoNotOptimize(AppInfo(url, platform.platform()));
        }
    }
}

benchmark::internal::Benchmark* bench(const char* name, void (*run)(State&),
                                      benchmark::TimeUnit unit) {
    return benchmark::RegisterBenchmark(name, run)
        ->Unit(unit)
        ->Repetitions(repetitions)
        ->MinTime(0.02);
}

benchmark::internal::Benchmark* coldBench(const char* name, void (*run)(State&)) {
    return benchmark::RegisterBenchmark(name, run)
        ->Unit(benchmark::kMicrosecond)
        ->Repetitions(repetitions)
        ->Iterations(coldIterations)
        ->UseManualTime();
}

Reporter::Goals registerBenches() {
    using benchmark::kMicrosecond;
    using benchmark::kMillisecond;
    using benchmark::kNanosecond;
    constexpr double tickGoal = 1000;    // ns
    constexpr double decisionGoal = 100; // us

    bench("tick of a hold, 0 allocations", tick, kNanosecond);
    bench("hot-key event to hold and back", dispatch, kNanosecond);
    bench("  reference: reading the clock", readClock, kNanosecond);
    bench("scope decision, 10000 applications, warm", decideWarm, kMicrosecond);
    coldBench("scope decision, 10000 applications, cold", decideCold);
    coldBench("  reference: search of 10000 texts, cold", searchTexts);
    bench("load of a list of 1000 applications", loadSettings, kMillisecond);
    bench("  reference: making the 1000 records", makeRecords, kMillisecond);
    return {{"tick of a hold, 0 allocations", {tickGoal, {}}},
            {"scope decision, 10000 applications, warm", {decisionGoal, {}}},
            {"scope decision, 10000 applications, cold", {decisionGoal, {}}}};
}

int run(const std::string& table) {
    Report report(table);
    Reporter reporter(report, registerBenches());
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.hasFailed() ? EXIT_FAILURE : EXIT_SUCCESS;
}

} // namespace

} // namespace dwellkey::bench

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (argc != 2) {
        std::cerr << "usage: dwellkey-bench-models FILE-OF-ROWS [--benchmark_filter=...]\n";
        return EXIT_FAILURE;
    }
    return dwellkey::bench::run(argv[1]);
}
