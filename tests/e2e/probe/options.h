// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace dwellkey::probe {

/// How the probe's windows are to be.
struct Options {
    std::optional<QString> className; // WM_CLASS, taken literally
    QString title = QStringLiteral("Probe");
    int windows = 1;
    bool hasDialog = false;      // a modal dialog, transient for the first window
    bool refusesToClose = false; // and asks about unsaved changes instead
    bool isFullscreen = false;
    bool speaksDeleteProtocol = true; // WM_DELETE_WINDOW
    std::optional<quint32> forgedPid; // for _NET_WM_PID
    bool isDesktop = false;           // _NET_WM_WINDOW_TYPE_DESKTOP
    bool hasTextField = false;
    std::optional<QString> dragged; // the address that can be dragged out of the windows
};

/// From the command line; ends the process with a message when that is wrong.
[[nodiscard]] Options parseOptions();

} // namespace dwellkey::probe
