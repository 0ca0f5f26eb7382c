// SPDX-License-Identifier: MIT
// Everything a user can be shown, over a desktop on which nothing happens by itself.
#pragma once

#include <QWidget>

#include <functional>
#include <string>
#include <vector>

namespace dwellkey {

/// Takes a window that is on the screen and laid out.
using Look = std::function<void(QWidget& window)>;

struct Scene {
    std::string name; // also its picture's
    /// Brings the window up, populated, shows it to `look` and takes it down.
    std::function<void(const Look& look)> play;
};

/// In the language of the application's translators. They install a platform as the shared one.
std::vector<Scene> scenes();

} // namespace dwellkey
