// SPDX-License-Identifier: MIT
#include "platform/linux/json_user_defaults.h"

#include "platform/linux/environment.h"
#include "platform/linux/text_encoding.h"

#include <thread>
#include <utility>
#include <vector>

namespace dwellkey {
namespace {

using namespace std::chrono_literals;

// Whoever holds the lock is writing one small file; longer than this and it hangs.
constexpr auto lockRetryInterval = 20ms;
constexpr int mostLockAttempts = 25;
// The same where there is no later turn of the loop to wait for: the program opens or ends.
constexpr auto briefLockPause = 1ms;
constexpr int mostBriefLockAttempts = 500;

const DefaultsValue* valueOf(const SettingsDocument& settings, std::string_view key) {
    const auto found = settings.find(key);
    return found != settings.end() && found->second.value ? &*found->second.value : nullptr;
}

bool differ(const DefaultsValue* one, const DefaultsValue* other) {
    return one == nullptr || other == nullptr ? one != other : *one != *other;
}

std::vector<std::string> keysWithOtherValues(const SettingsDocument& before,
                                             const SettingsDocument& after) {
    std::vector<std::string> keys;
    for (const auto& [key, setting] : before) {
        if (differ(valueOf(before, key), valueOf(after, key))) {
            keys.push_back(key);
        }
    }
    for (const auto& [key, setting] : after) {
        if (setting.value && !before.contains(key)) {
            keys.push_back(key);
        }
    }
    return keys;
}

} // namespace

JsonUserDefaults::JsonUserDefaults(std::string path, RunLoop& loop, ErrorLog& log)
    : loop_(loop), log_(log), file_(std::move(path)),
      watch_(file_.path(), loop, [this] { fileChanged(); }) {
    if (watch_.problem()) {
        log_.error("Edits of " + file_.path() + " go unnoticed", *watch_.problem());
    }
    load();
}

JsonUserDefaults::~JsonUserDefaults() {
    saveNow();
}

std::string JsonUserDefaults::defaultPath() {
    // Without a home folder: a place that nobody can make, not even root. Settings then live in
    // memory, and the cause is logged.
    constexpr const char* noHome = "/dev/null";
    const auto configHome = BaseFolders::from(processEnvironment()).configHome;
    return configHome.value_or(noHome) + "/dwellkey/settings.json";
}

void JsonUserDefaults::load() {
    auto content = file_.readWhenWritten();
    if (std::holds_alternative<SettingsFile::Damaged>(content)) {
        // Another process may be mending it this moment; under the lock we see what it made.
        const FileLock lock = lockBriefly();
        content = file_.read();
        if (const auto* damage = std::get_if<SettingsFile::Damaged>(&content)) {
            static_cast<void>(setAside(*damage));
        }
    }
    if (const auto* unreadable = std::get_if<SettingsFile::Unreadable>(&content)) {
        complain(editComplaint_, "Cannot read the settings in " + file_.path(), unreadable->cause);
    }
    if (auto* settings = std::get_if<SettingsDocument>(&content)) {
        settings_ = std::move(*settings);
    }
}

const DefaultsValue* JsonUserDefaults::find(std::string_view key) const {
    return valueOf(settings_, key);
}

bool JsonUserDefaults::contains(std::string_view key) const {
    return settings_.contains(key);
}

void JsonUserDefaults::set(std::string_view key, DefaultsValue value) {
    const DefaultsValue* current = find(key);
    if (current != nullptr && *current == value) {
        return;
    }
    auto setting = makeSetting(std::move(value));
    if (!setting || !isUtf8(key)) {
        log_.error("Cannot store the setting " + std::string(key),
                   setting ? "its key is not UTF-8" : "it is not a finite number");
        return;
    }
    settings_.insert_or_assign(std::string(key), std::move(*setting));
    markPending(key);
}

void JsonUserDefaults::remove(std::string_view key) {
    if (const auto found = settings_.find(key); found != settings_.end()) {
        settings_.erase(found);
        markPending(key);
    }
}

Subscription JsonUserDefaults::observe(std::string_view key,
                                       std::function<void(DefaultsChange)> changed) {
    return observers_[std::string(key)].subscribe(std::move(changed));
}

void JsonUserDefaults::synchronize() {
    saveNow();
}

void JsonUserDefaults::markPending(std::string_view key) {
    const std::string kept(key); // the caller's may be gone after the observers ran
    pending_.insert(kept);
    scheduleSave();
    notify(kept, DefaultsChange::ours);
}

void JsonUserDefaults::scheduleSave() {
    if (std::exchange(saveIsPosted_, true)) {
        return;
    }
    loop_.post([this, alive = std::weak_ptr(alive_)] {
        if (!alive.expired()) {
            saveWhenUnlocked();
        }
    });
}

void JsonUserDefaults::saveWhenUnlocked() {
    if (pending_.empty()) { // saved in the meantime
        saveIsPosted_ = false;
        return;
    }
    const FileLock lock = file_.tryLock();
    const bool isBusy = lock.state() == FileLock::State::busy && ++lockAttempts_ < mostLockAttempts;
    const auto content = file_.read();
    if (isBusy || file_.isUnfinished(content)) {
        if (!lockRetry_.isActive()) {
            lockRetry_ = loop_.repeat(lockRetryInterval, [this] { saveWhenUnlocked(); });
        }
        return;
    }
    save(lock, content);
}

void JsonUserDefaults::saveNow() {
    if (!pending_.empty()) {
        const FileLock lock = lockBriefly();
        save(lock, file_.readWhenWritten());
    }
}

FileLock JsonUserDefaults::lockBriefly() const {
    FileLock lock = file_.tryLock();
    for (int attempt = 1; lock.state() == FileLock::State::busy && attempt < mostBriefLockAttempts;
         ++attempt) {
        std::this_thread::sleep_for(briefLockPause);
        lock = file_.tryLock();
    }
    return lock;
}

/// `content` is what the file holds.
void JsonUserDefaults::save(const FileLock& lock, const SettingsFile::Content& content) {
    saveIsPosted_ = false;
    lockAttempts_ = 0;
    lockRetry_.cancel();
    const std::string message = "Cannot save the settings in " + file_.path();
    if (lock.state() == FileLock::State::busy) {
        log_.error("Saving " + file_.path() + " without its lock", "another process keeps it");
    } else if (!std::exchange(leftoversRemoved_, true)) {
        file_.removeLeftovers();
    }
    if (const auto* unreadable = std::get_if<SettingsFile::Unreadable>(&content)) {
        complain(saveComplaint_, message, unreadable->cause);
        return;
    }
    const auto* damage = std::get_if<SettingsFile::Damaged>(&content);
    if (damage != nullptr && !setAside(*damage)) {
        return;
    }
    const auto* onDisk = std::get_if<SettingsDocument>(&content);
    SettingsDocument merged = onDisk != nullptr ? *onDisk : settings_;
    overlayPending(merged);
    if (onDisk == nullptr || merged != *onDisk) {
        if (const auto error = file_.write(merged)) {
            complain(saveComplaint_, message, error->cause);
            return;
        }
    }
    pending_.clear();
    saveComplaint_.reset();
    adopt(std::move(merged));
}

bool JsonUserDefaults::setAside(const SettingsFile::Damaged& damage) {
    const auto outcome = file_.setAside();
    if (const auto* error = std::get_if<FileError>(&outcome)) {
        complain(saveComplaint_, "Cannot set the damaged settings in " + file_.path() + " aside",
                 error->cause);
        return false;
    }
    log_.error("The settings in " + file_.path() + " were damaged and are now in "
                   + std::get<std::string>(outcome),
               damage.cause);
    return true;
}

void JsonUserDefaults::overlayPending(SettingsDocument& settings) const {
    for (const std::string& key : pending_) {
        if (const auto ours = settings_.find(key); ours != settings_.end()) {
            settings.insert_or_assign(key, ours->second);
        } else {
            settings.erase(key);
        }
    }
}

void JsonUserDefaults::adopt(SettingsDocument settings) {
    overlayPending(settings);
    const auto changed = keysWithOtherValues(settings_, settings);
    settings_ = std::move(settings);
    for (const std::string& key : changed) {
        notify(key, DefaultsChange::fromOutside);
    }
}

void JsonUserDefaults::notify(std::string_view key, DefaultsChange change) {
    if (const auto found = observers_.find(key); found != observers_.end()) {
        found->second.emit(change);
    }
}

void JsonUserDefaults::fileChanged() {
    auto content = file_.read();
    const std::string message = "Cannot use the edited settings in " + file_.path();
    if (const auto* damage = std::get_if<SettingsFile::Damaged>(&content)) {
        complain(editComplaint_, message, damage->cause);
    } else if (const auto* unreadable = std::get_if<SettingsFile::Unreadable>(&content)) {
        complain(editComplaint_, message, unreadable->cause);
    } else if (auto* settings = std::get_if<SettingsDocument>(&content)) {
        editComplaint_.reset();
        adopt(std::move(*settings));
    }
    if (!pending_.empty()) {
        scheduleSave();
    }
}

void JsonUserDefaults::complain(Complaint& last, std::string_view message,
                                const std::string& cause) {
    if (last != cause) {
        last = cause;
        log_.error(message, cause);
    }
}

} // namespace dwellkey
