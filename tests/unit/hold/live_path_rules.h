// SPDX-License-Identifier: MIT
// The rules of the live path, as a machine of its own: what the models must do, told without them.
#pragma once

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace dwellkey::live_path {

using Time = std::chrono::nanoseconds;

inline constexpr std::uint32_t ctrl = 0x100; // the modifier of both combinations
/// Editor: quits when asked. Terminal: refuses. Files: the file manager. Game: has no identifier.
enum Application { editor, terminal, files, game, nobody };
/// The two commands; a key that is nobody's comes third.
enum Key { q, w, x };
enum class Act {
    down,
    up,
    modifierDown,
    modifierUp,
    wait,
    focus,
    end,
    list,
    scope,
    delay,
    take,
    giveBack,
    disable,
    enable,
    loseKeyboard,
    stall,
    resume,
    trust,
    answer
};
struct Step {
    Act act;
    int value;
};

class Rules {
public:
    /// Runs while an alert is open.
    std::function<void()> duringAlert;

    std::array<int, 5> asked{}; // to quit, by application
    int closed = 0, alerts = 0;
    std::vector<std::pair<Key, std::uint32_t>> typed; // what the application in front got
    [[nodiscard]] bool isHolding() const { return hold_.has_value(); }
    [[nodiscard]] bool isGuarded(Application app) const {
        return app != nobody && app != game && listed_[app] == includes_;
    }
    [[nodiscard]] bool isStalled() const { return stalled_; }
    [[nodiscard]] bool isRegistered(Key key) const { return commands_[key].registered; }
    [[nodiscard]] bool hasEnded(Application app) const { return ended_.contains(app); }

    void apply(Step step) {
        const int v = step.value;
        switch (step.act) {
        case Act::down:
            keyDown(static_cast<Key>(v));
            break;
        case Act::up:
            ours_.erase(v), down_.erase(v), endPresses([v](int key) { return key == v; });
            break;
        case Act::modifierDown:
            modifiers_ |= static_cast<std::uint32_t>(v);
            break;
        case Act::modifierUp:
            modifiers_ &= ~static_cast<std::uint32_t>(v),
                endPresses([v](int) { return v == ctrl; });
            break;
        case Act::wait:
            stalled_ ? void(now_ += std::chrono::milliseconds(v))
                     : run(std::chrono::milliseconds(v));
            break;
        case Act::focus:
            stalled_ ? void(unannounced_ = static_cast<Application>(v))
                     : bringToFront(static_cast<Application>(v));
            break;
        case Act::end:
            end(static_cast<Application>(v));
            break;
        case Act::list:
            listed_[v] = !listed_[v], policyIsDue_ = true;
            break;
        case Act::scope:
            includes_ = v != 0, policyIsDue_ = true;
            break;
        case Act::delay:
            delay_ = std::chrono::milliseconds(v), policyIsDue_ = true;
            break;
        case Act::take:
            commands_[v].taken = true;
            break;
        case Act::giveBack:
            commands_[v].taken = false;
            break;
        case Act::disable:
            disable(static_cast<Key>(v));
            break;
        case Act::enable:
            enable(commands_[v]);
            break;
        case Act::loseKeyboard:
            endPresses([](int) { return true; });
            break;
        case Act::stall:
            stalled_ = true;
            break;
        case Act::resume:
            stalled_ = false, run({}), deliver(), announce();
            break;
        case Act::trust:
            trusted_ = v != 0;
            break;
        case Act::answer:
            break; // what `duringAlert` does
        }
    }
    /// What was put off until the process's next turn.
    void turn() {
        if (std::exchange(policyIsDue_, false))
            standDown();
    }

private:
    struct Command {
        bool registered = true, taken = false, triesAgain = false, pressed = false,
             wantsStandDown = false, standsDown = false;
    };
    struct Event {
        bool pressed;
        Key key;
    };
    struct Hold {
        int number;
        Time start, nextTick;
        bool closes, ticking;
        std::vector<Application> seen;
    };

    void keyDown(Key key) {
        const bool repeats = !down_.insert(key).second;
        if (key != x && !repeats && modifiers_ == ctrl && commands_[key].registered
            && !commands_[key].standsDown) {
            ours_.insert(key), commands_[key].pressed = true, tell({true, key});
        } else if (!ours_.contains(key)) {
            typed.emplace_back(key, modifiers_);
        }
    }
    template <typename Condition>
    void endPresses(Condition condition) {
        std::vector<Key> ending;
        for (const Key key : {q, w})
            if (commands_[key].pressed && condition(key))
                commands_[key].pressed = false, ending.push_back(key);
        settle();
        for (const Key key : ending)
            tell({false, key});
    }
    void tell(Event event) {
        events_.push_back(event);
        if (!stalled_)
            deliver();
    }
    void deliver() {
        while (!events_.empty()) {
            const Event event = events_.front();
            events_.pop_front();
            if (!event.pressed)
                hold_.reset();
            else if (isGuarded(front_))
                hold_ = Hold{++holds_, now_, now_ + tick, event.key == w, false, {front_}};
            else
                act(event.key == w); // at once
        }
    }
    void settle() { // standing down waits until no shortcut is held
        if (!commands_[q].pressed && !commands_[w].pressed)
            for (auto& command : commands_)
                command.standsDown = command.wantsStandDown;
    }
    void standDown() {
        const bool others = front_ == nobody ? !trusted_ : !isGuarded(front_);
        commands_[q].wantsStandDown = others && front_ != files,
        commands_[w].wantsStandDown = others;
        settle();
    }
    void disable(Key key) {
        std::erase_if(events_, [&](const Event& event) { return event.key == key; });
        auto& [registered, taken, triesAgain, pressed, wants, stands] = commands_[key];
        registered = triesAgain = pressed = false;
        settle();
    }
    void enable(Command& command) {
        command.registered = !command.taken, command.triesAgain = command.taken;
    }
    void activate(Application app) {
        if (app == front_)
            return;
        front_ = app;
        if (hold_ && hasLostAnApplication())
            hold_.reset();
        if (hold_)
            hold_->seen.push_back(app);
        standDown();
        for (const Key key : {q, w})
            if (commands_[key].triesAgain)
                enable(commands_[key]);
    }
    void bringToFront(Application app) {
        if (ended_.erase(app) > 0 && front_ == app) {
            front_ = nobody; // it is started again
        }
        activate(app);
    }
    void announce() {
        if (const auto app = std::exchange(unannounced_, std::nullopt))
            activate(*app);
    }
    void end(Application app) {
        ended_.insert(app);
        if (front_ == app && !stalled_)
            activate(nobody);
    }
    [[nodiscard]] bool hasLostAnApplication() const {
        return std::ranges::any_of(hold_->seen, [this](auto app) { return ended_.contains(app); });
    }
    [[nodiscard]] bool areKeysDown() const {
        return std::ranges::any_of(std::array{q, w}, [this](Key key) {
            return commands_[key].pressed && down_.contains(key) && (modifiers_ & ctrl) != 0;
        });
    }
    void run(Time duration) {
        const Time end = now_ + duration;
        turn();
        while (hold_ && !hold_->ticking && hold_->nextTick <= end) {
            now_ = std::max(now_, hold_->nextTick);
            hold_->nextTick += ((now_ - hold_->nextTick) / tick + 1) * tick;
            hold_->ticking = true;
            const int number = hold_->number;
            if (now_ - hold_->start >= delay_)
                complete(number);
            if (hold_ && hold_->number == number)
                hold_->ticking = false;
            turn();
        }
        now_ = std::max(now_, end);
    }
    void complete(int number) {
        announce();
        const bool isMeant = hold_ && !hasLostAnApplication();
        deliver();
        if (!hold_ || hold_->number != number)
            return;
        if (isMeant && areKeysDown() && isGuarded(front_))
            act(hold_->closes);
        if (hold_ && hold_->number == number)
            hold_.reset();
    }
    void act(bool closes) {
        if (!closes && front_ != files) {
            if (front_ == nobody)
                return;
            ++asked[front_];
            if (front_ == editor)
                end(editor);
        } else if (!trusted_) {
            if (++alerts, alertDepth_ == 0)
                ++alertDepth_, duringAlert(), --alertDepth_;
        } else if (front_ != nobody) {
            ++closed;
        }
    }

    static constexpr Time tick = std::chrono::milliseconds(10);
    Time now_{}, delay_ = std::chrono::milliseconds(250);
    std::array<Command, 2> commands_;
    std::array<bool, 4> listed_{};
    std::set<int> down_, ours_, ended_;
    std::deque<Event> events_;
    std::optional<Hold> hold_;
    std::optional<Application> unannounced_;
    Application front_ = nobody;
    std::uint32_t modifiers_ = 0;
    int holds_ = 0, alertDepth_ = 0;
    bool stalled_ = false, includes_ = false, trusted_ = true, policyIsDue_ = false;
};

} // namespace dwellkey::live_path
