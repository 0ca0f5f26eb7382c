// SPDX-License-Identifier: MIT
// The dialog in which the user chooses files to open.
#pragma once

#include "support/url.h"

#include <functional>
#include <string>
#include <vector>

class QWidget;

namespace dwellkey {

struct OpenPanel {
    bool allowsMultipleSelection = false;
    bool canChooseFiles = true;
    bool canChooseDirectories = false;
    std::vector<std::string> allowedFileTypes; // suffixes without the dot
    std::string directory;                     // where it starts; a path
};

enum class ModalResponse { cancel = 0, ok = 1 };

struct OpenPanelResult {
    ModalResponse response = ModalResponse::cancel;
    std::vector<Url> urls;
};

/// Shows the panel over the window and waits in a loop of its own for the answer.
using OpenPanelRunner = std::function<OpenPanelResult(const OpenPanel& panel, QWidget* window)>;

/// With the desktop's own dialog.
OpenPanelResult runModal(const OpenPanel& panel, QWidget* window);

/// Where the desktop keeps the entries of the applications that all users have: of several folders
/// the one with the most; "/" where there is none.
std::string applicationsFolder();

} // namespace dwellkey
