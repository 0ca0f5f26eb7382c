// SPDX-License-Identifier: MIT
// What reading a desktop's own shortcuts gives. std + POSIX only.
#pragma once

#include "platform/linux/accelerator.h"
#include "platform/linux/environment.h"

#include <optional>
#include <string>
#include <vector>

namespace dwellkey {

struct ShortcutReading {
    /// Only those that are in force. Some may name keys that do not exist.
    std::vector<Accelerator> accelerators;
    /// What could not be read: one line each, the same one each time for the same cause.
    std::vector<std::string> problems;

    /// Leaves out what is no combination.
    void add(std::optional<Accelerator> accelerator) {
        if (accelerator) {
            accelerators.push_back(*std::move(accelerator));
        }
    }
};

/// The content of a settings file, which may be missing; a file that is there and cannot be read
/// is a problem of the reading.
std::optional<std::string> readIfPresent(const std::string& path, ShortcutReading& reading);

struct SettingsLayer {
    std::string path;
    std::string text;
};

/// The settings file of this name, relative to a configuration folder, in every folder that has
/// it: least important first, so that a later one overwrites. That none has it is a problem.
std::vector<SettingsLayer> readLayers(const BaseFolders& folders, const std::string& name,
                                      ShortcutReading& reading);

} // namespace dwellkey
