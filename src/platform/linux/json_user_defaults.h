// SPDX-License-Identifier: MIT
// The user's settings in one JSON file. POSIX only.
#pragma once

#include "platform/linux/file_watch.h"
#include "platform/linux/settings_file.h"
#include "platform/run_loop.h"
#include "platform/session.h"
#include "platform/user_defaults.h"

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace dwellkey {

/// What is set is held in memory and saved in the next turn of the loop: merged, under a lock, over
/// what the file then holds, so two processes that set different keys both keep theirs, and keys
/// that this program does not know survive. settings_format.h says how values are spelled.
///
/// - A save that fails is logged once for each cause; the values stay, and the next `set`, change
///   of the file, or `synchronize` tries again.
/// - A damaged file is renamed, never overwritten: when the store opens, or when a save finds it.
/// If
///   it was just written, its editor may have done half of that and gets a moment for the rest.
///   One that an edit from outside left behind is only logged, and the values in force stay: the
///   editor that wrote it is likely still open, and its user about to mend it.
/// - A file that cannot be read is left alone; the values then live in memory.
/// - A file that disappears takes no values with it: many programs save by deleting and making
///   anew. The next save restores it.
///
/// A number that is not finite, or a key that is not UTF-8, cannot be stored: logged, not set.
class JsonUserDefaults final : public UserDefaults {
public:
    /// The path is absolute. The loop and the log must outlive the store.
    JsonUserDefaults(std::string path, RunLoop& loop, ErrorLog& log);
    /// Saves what is pending.
    ~JsonUserDefaults() override;

    /// dwellkey/settings.json below XDG_CONFIG_HOME.
    static std::string defaultPath();

    [[nodiscard]] const DefaultsValue* find(std::string_view key) const override;
    [[nodiscard]] bool contains(std::string_view key) const override;
    void set(std::string_view key, DefaultsValue value) override;
    void remove(std::string_view key) override;
    [[nodiscard]] Subscription observe(std::string_view key,
                                       std::function<void(DefaultsChange)> changed) override;
    void synchronize() override;

private:
    /// The last cause that was logged; absent after it worked.
    using Complaint = std::optional<std::string>;

    void load();
    void markPending(std::string_view key);
    void scheduleSave();
    void saveWhenUnlocked();
    void saveNow();
    void save(const FileLock& lock, const SettingsFile::Content& content);
    [[nodiscard]] bool setAside(const SettingsFile::Damaged& damage);
    void overlayPending(SettingsDocument& settings) const;
    void adopt(SettingsDocument settings);
    void notify(std::string_view key, DefaultsChange change);
    void fileChanged();
    void complain(Complaint& last, std::string_view message, const std::string& cause);
    [[nodiscard]] FileLock lockBriefly() const;

    RunLoop& loop_;
    ErrorLog& log_;
    SettingsFile file_;
    SettingsDocument settings_; // as they are in force: the pending ones included
    std::set<std::string, std::less<>> pending_;
    std::map<std::string, Signal<DefaultsChange>, std::less<>> observers_;
    Complaint saveComplaint_;
    Complaint editComplaint_;
    bool saveIsPosted_ = false;
    bool leftoversRemoved_ = false;
    int lockAttempts_ = 0;
    Subscription lockRetry_;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true); // for posted tasks
    FileWatch watch_;
};

} // namespace dwellkey
