// SPDX-License-Identifier: MIT
// The live path against its rules, in random sequences of what users, applications and desktops do.
#include "hold_fixture.h"
#include "live_path_rules.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace dwellkey::live_path {
namespace {

using Steps = std::vector<Step>;

constexpr std::array<std::uint32_t, 3> keyCodes{12, 13, 7}; // q, w, x
constexpr int shift = 0x200;
#ifdef __SANITIZE_ADDRESS__
constexpr bool isSlow = true;
#elif defined(__has_feature)
constexpr bool isSlow = __has_feature(address_sanitizer);
#else
constexpr bool isSlow = false;
#endif
constexpr int stepsInAll = isSlow ? 100'000 : 1'000'000;
constexpr int stepsInASequence = 250;

/// What the user does while an alert is open. Chosen by `Act::answer`.
const std::array<Steps, 4> answers{{
    {},
    {{Act::wait, 700}},
    {{Act::up, q}, {Act::up, w}, {Act::wait, 40}},
    {{Act::up, q}, {Act::wait, 40}, {Act::down, q}, {Act::wait, 300}},
}};

/// The models as the program composes them, on a desktop that the steps are played on.
class LivePath {
public:
    LivePath() {
        preferences_.setDelayUntilActivation(0.25);
        model_.closeWindowCommand.setKey(dwellkey::Key::w);
        model_.closeWindowCommand.setModifiers({Modifier::command});
        model_.closeWindowCommand.enable();
        for (const int app : {editor, terminal, files, game}) {
            start(app);
        }
        turn();
        desktop_.alerts.duringModal = [this] {
            if (desktop_.alerts.openCount == 1) {
                std::ranges::for_each(answers[answer_], [this](Step step) { apply(step); });
            }
        };
    }

    void apply(Step step) {
        const auto value = static_cast<std::uint32_t>(step.value);
        FakeHotKeys& keyboard = desktop_.hotKeys;
        switch (step.act) {
        case Act::down:
            return keyboard.keyDown(keyCodes[value]);
        case Act::up:
            return keyboard.keyUp(keyCodes[value]);
        case Act::modifierDown:
            return keyboard.modifiersDown(value);
        case Act::modifierUp:
            return keyboard.modifiersUp(value);
        case Act::loseKeyboard:
            return keyboard.loseKeyboard();
        case Act::take:
            return keyboard.takeByOther({keyCodes[value], ctrl});
        case Act::giveBack:
            return keyboard.giveBackByOther({keyCodes[value], ctrl});
        case Act::disable:
            return command(value).disable();
        case Act::enable:
            return command(value).enable();
        case Act::trust:
            desktop_.accessibilityTrust.trusted = value != 0;
            return;
        case Act::answer:
            answer_ = value;
            return;
        case Act::delay:
            return preferences_.setDelayUntilActivation(step.value / 1000.0);
        case Act::scope:
            return preferences_.setSelectedAppScope(value != 0 ? AppScopeMode::includeApps
                                                               : AppScopeMode::excludeApps);
        default:
            applyToApplications(step);
        }
    }
    void turn() { desktop_.runLoop.runPosted(); }

    /// Everything that can be seen from outside, in words; forgets what was done.
    std::string outcome() {
        std::ostringstream text;
        text << (timer_.isTimerViewVisible.get() ? "panel" : "no panel");
        for (std::size_t app = 0; app < applications_.size(); ++app) {
            text << ", asked " << std::exchange(applications_[app]->terminateCount, 0);
        }
        text << ", closed " << desktop_.scriptHost.executedSources.size() << ", alerts "
             << desktop_.alerts.shown.size();
        for (const auto& [code, modifiers] : desktop_.hotKeys.typedIntoApplication) {
            text << ", typed " << std::ranges::find(keyCodes, code) - keyCodes.begin() << '+'
                 << modifiers;
        }
        desktop_.scriptHost.executedSources.clear();
        desktop_.scriptHost.compiledSources.clear();
        desktop_.alerts.shown.clear();
        desktop_.hotKeys.typedIntoApplication.clear();
        return text.str();
    }

private:
    void start(int app) {
        const std::array<const char*, 4> names{"editor", "terminal", "files", "game"};
        const auto identifier = app == game ? std::nullopt : std::optional<std::string>(names[app]);
        const auto application = desktop_.workspace.launch(identifier, names[app]);
        application->fileManager = app == files;
        if (app == editor) {
            application->onTerminate = [this] { desktop_.workspace.quit(applications_[editor]); };
        }
        applications_[app] = application;
    }
    KeyCommand& command(std::uint32_t key) {
        return key == q ? model_.quitApplicationCommand : model_.closeWindowCommand;
    }
    void applyToApplications(Step step) {
        const auto duration = std::chrono::milliseconds(step.value);
        bool& stalls = desktop_.hotKeys.holdsEventsBack;
        if (step.act == Act::wait) {
            stalls ? desktop_.clock.advance(duration) : desktop_.runLoop.advance(duration);
        } else if (step.act == Act::stall) {
            stalls = true;
        } else if (step.act == Act::resume) {
            stalls = false;
            desktop_.runLoop.advance({});
            desktop_.hotKeys.deliverEvents();
            desktop_.workspace.confirmFrontmostApplication();
        } else if (step.act == Act::list) {
            list(step.value);
        } else if (step.act == Act::end) {
            stalls ? void(applications_[step.value]->terminated = true)
                   : desktop_.workspace.quit(applications_[step.value]);
        } else if (step.value == nobody) {
            desktop_.workspace.setFrontmost(nullptr);
        } else {
            bringToFront(step.value, stalls);
        }
    }
    void bringToFront(int app, bool unannounced) {
        if (applications_[app]->terminated && !unannounced) {
            applications_[app]->terminateCount = 0;
            start(app);
        }
        unannounced ? void(desktop_.workspace.unannouncedFrontmost = applications_[app])
                    : desktop_.workspace.setFrontmost(applications_[app]);
    }
    /// Or takes off the list again.
    void list(int app) {
        const Url url = Url::fromPath("/apps/" + *applications_[app]->identifier + ".desktop");
        auto apps = preferences_.apps();
        if (std::erase_if(apps, [&](const AppInfo& info) { return info.url() == url; }) > 0) {
            preferences_.setApps(std::move(apps));
        } else {
            desktop_.bundleReader.install(url, {applications_[app]->identifier, std::nullopt});
            preferences_.addApp(url);
        }
    }

    FakeDesktop desktop_;
    AlertManager alertManager_;
    PreferencesViewModel preferences_{desktop_.platform(), alertManager_};
    TimerManager timer_{desktop_.platform(), preferences_};
    AppStateManager appState_{desktop_.platform()};
    KeyCommandRegistry registry_{desktop_.platform()};
    KeyboardShortcutsModel model_{desktop_.platform(), timer_, appState_, registry_};
    std::array<std::shared_ptr<FakeRunningApplication>, 4> applications_;
    std::size_t answer_ = 0;
};

std::string outcome(Rules& rules) {
    std::ostringstream text;
    text << (rules.isHolding() ? "panel" : "no panel");
    for (const int app : {editor, terminal, files, game}) {
        text << ", asked " << std::exchange(rules.asked[app], 0);
    }
    text << ", closed " << std::exchange(rules.closed, 0) << ", alerts "
         << std::exchange(rules.alerts, 0);
    for (const auto& [key, modifiers] : std::exchange(rules.typed, {})) {
        text << ", typed " << key << '+' << modifiers;
    }
    return text.str();
}

/// A stopped process does nothing, one that ended does not come back during a hold, and so on.
bool isPossible(const Rules& rules, Step step) {
    const bool hasEnded =
        step.value < nobody && rules.hasEnded(static_cast<Application>(step.value));
    switch (step.act) {
    case Act::down:
    case Act::up:
    case Act::modifierDown:
    case Act::modifierUp:
    case Act::loseKeyboard:
    case Act::wait:
        return true;
    case Act::focus:
        return rules.isStalled() ? step.value != nobody : !hasEnded || !rules.isHolding();
    case Act::end:
        return !hasEnded;
    case Act::resume:
        return rules.isStalled();
    case Act::enable:
        return !rules.isStalled() && !rules.isRegistered(static_cast<Key>(step.value));
    default:
        return !rules.isStalled();
    }
}

/// Where the models first do something else than the rules; absent: nowhere.
struct Difference {
    std::size_t step;
    std::string models;
    std::string rules;
};

std::optional<Difference> play(const Steps& steps) {
    LivePath models;
    Rules rules;
    std::size_t answer = 0;
    rules.duringAlert = [&] {
        std::ranges::for_each(answers[answer], [&](Step step) { rules.apply(step); });
    };
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const Step step = steps[i];
        if (!isPossible(rules, step)) {
            continue;
        }
        if (step.act == Act::answer) {
            answer = static_cast<std::size_t>(step.value);
        }
        models.apply(step);
        rules.apply(step);
        if (!rules.isStalled()) {
            models.turn();
            rules.turn();
        }
        if (auto [done, due] = std::pair(models.outcome(), outcome(rules)); done != due) {
            return Difference{i, std::move(done), std::move(due)};
        }
    }
    return std::nullopt;
}

/// What users do most comes most; each value is drawn evenly.
Step draw(std::mt19937& random) {
    struct Choice {
        int weight;
        Act act;
        std::vector<int> values;
    };
    static const std::vector<Choice> choices{
        {20, Act::down, {q, q, q, w, x}},
        {14, Act::up, {q, q, w, x}},
        {14, Act::modifierDown, {ctrl, ctrl, ctrl, ctrl, shift}},
        {8, Act::modifierUp, {ctrl, shift, shift}},
        {26, Act::wait, {3, 10, 90, 240, 249, 250, 251, 300}},
        {8, Act::focus, {editor, terminal, files, game, nobody}},
        {2, Act::end, {editor, terminal, files, game}},
        {3, Act::list, {editor, terminal, files}},
        {1, Act::scope, {0, 1}},
        {2, Act::delay, {250, 500, 1000}},
        {1, Act::take, {q, w}},
        {2, Act::giveBack, {q, w}},
        {1, Act::disable, {q, w}},
        {2, Act::enable, {q, w}},
        {1, Act::loseKeyboard, {0}},
        {2, Act::stall, {0}},
        {3, Act::resume, {0}},
        {2, Act::trust, {0, 1}},
        {2, Act::answer, {0, 1, 2, 3}},
    };
    static const std::vector<double> weights = [] {
        std::vector<double> all;
        std::ranges::transform(choices, std::back_inserter(all), &Choice::weight);
        return all;
    }();
    std::discrete_distribution<std::size_t> which(weights.begin(), weights.end());
    const Choice& choice = choices[which(random)];
    return {choice.act, choice.values[random() % choice.values.size()]};
}

/// Leaves out whatever is not needed for a difference, in ever smaller pieces.
Steps shrunk(Steps steps) {
    for (std::size_t size = steps.size() / 2; size > 0; size = size > 1 ? size / 2 : 0) {
        for (std::size_t at = 0; at < steps.size();) {
            Steps fewer = steps;
            const auto from = fewer.begin() + static_cast<std::ptrdiff_t>(at);
            fewer.erase(from,
                        from + static_cast<std::ptrdiff_t>(std::min(size, fewer.size() - at)));
            if (play(fewer)) {
                steps = std::move(fewer);
            } else {
                at += size;
            }
        }
    }
    return steps;
}

/// In the form of the cases below.
std::string printed(const Steps& steps) {
    constexpr std::array names{"down",  "up",       "modifierDown", "modifierUp", "wait",
                               "focus", "end",      "list",         "scope",      "delay",
                               "take",  "giveBack", "disable",      "enable",     "loseKeyboard",
                               "stall", "resume",   "trust",        "answer"};
    std::ostringstream text;
    for (const Step& step : steps) {
        text << "{Act::" << names[static_cast<std::size_t>(step.act)] << ", " << step.value
             << "}, ";
    }
    return "{" + text.str() + "}";
}

void expectNoDifference(const Steps& steps) {
    if (play(steps)) {
        const Steps few = shrunk(steps);
        const auto difference = play(few);
        ADD_FAILURE() << "a case to keep:\n    " << printed(few)
                      << "\nthe models, after the last step: " << difference->models
                      << "\nthe rules:                       " << difference->rules;
    }
}

TEST(LivePathTest, randomSequences_followTheRules) {
    const char* const given = std::getenv("DWELLKEY_SEED");
    const auto seed =
        given != nullptr ? static_cast<std::uint32_t>(std::stoul(given)) : std::random_device{}();
    std::cout << "DWELLKEY_SEED=" << seed << '\n';
    std::mt19937 random(seed);
    for (int done = 0; done < stepsInAll && !testing::Test::HasFailure();
         done += stepsInASequence) {
        Steps steps(stepsInASequence);
        std::ranges::generate(steps, [&] { return draw(random); });
        expectNoDifference(steps);
    }
}

} // namespace
} // namespace dwellkey::live_path
