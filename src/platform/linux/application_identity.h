// SPDX-License-Identifier: MIT
// Which application a window belongs to. std + POSIX only.
#pragma once

#include "platform/linux/default_file_manager.h"
#include "platform/linux/desktop_entry_index.h"
#include "platform/linux/process_facts.h"
#include "support/url.h"

#include <sys/types.h>

#include <optional>
#include <string>

namespace dwellkey {

/// What a backend learns of a window. The texts are the client's own claims.
struct WindowFacts {
    std::string classInstance; ///< WM_CLASS, first part
    std::string className;     ///< WM_CLASS, second part
    std::optional<std::string> gtkApplicationId;
    std::optional<pid_t> process;   ///< the display server's own answer
    bool ownsDesktopWindow = false; ///< its process also shows the desktop's background
};

struct ApplicationIdentity {
    std::optional<std::string> bundleIdentifier;
    std::optional<Url> bundleUrl;             ///< of the desktop entry; our own at least
    std::optional<std::string> localizedName; ///< as displayName makes it
    bool isFileManager = false;
    bool operator==(const ApplicationIdentity&) const = default;
};

/// Goes by the evidence that docks use, in their order, so that the user finds the same
/// applications here as there.
///
/// Most of it is the window's own word, and a hostile window may state any class. It gains
/// nothing: passing for an unguarded application, or for the file manager, only changes what our
/// shortcuts do to that very window. It cannot reach another application's windows: requests go to
/// the process that the display server names.
class ApplicationIdentifier {
public:
    /// All three must outlive this.
    ApplicationIdentifier(const DesktopEntryIndex& index, const DefaultFileManager& fileManager,
                          const ProcessReader& processes)
        : index_(index), fileManager_(fileManager), processes_(processes) {}

    /// Reads files of /proc: for a change of the focus, not for a key.
    [[nodiscard]] ApplicationIdentity identify(const WindowFacts& window) const;

private:
    using Found = std::optional<InstalledApplication>;

    [[nodiscard]] Found installedApplication(const WindowFacts& window) const;
    [[nodiscard]] Found byStartupWmClass(const WindowFacts& window) const;
    [[nodiscard]] Found byEntryName(const WindowFacts& window) const;
    [[nodiscard]] Found bySandbox(const WindowFacts& window) const;
    [[nodiscard]] Found bySnap(pid_t process) const;
    [[nodiscard]] Found byGtkApplicationId(const WindowFacts& window) const;
    [[nodiscard]] Found bySessionUnit(const WindowFacts& window) const;
    [[nodiscard]] Found byLaunchedEntry(const WindowFacts& window) const;
    [[nodiscard]] Found byExecutable(const WindowFacts& window) const;

    [[nodiscard]] Found launchedEntry(const std::string& path) const;
    [[nodiscard]] Found unlessInherited(Found application, pid_t process) const;
    [[nodiscard]] Found runBy(pid_t process) const;
    [[nodiscard]] std::optional<std::string> fallbackName(const WindowFacts& window) const;
    [[nodiscard]] bool isFileManager(const InstalledApplication& application) const;

    const DesktopEntryIndex& index_;
    const DefaultFileManager& fileManager_;
    const ProcessReader& processes_;
};

} // namespace dwellkey
