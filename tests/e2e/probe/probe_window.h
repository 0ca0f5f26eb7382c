// SPDX-License-Identifier: MIT
#pragma once

#include "options.h"

#include <QWidget>

namespace dwellkey::probe {

/// One of the probe's ordinary windows.
class ProbeWindow : public QWidget {
public:
    ProbeWindow(const Options& options, int index);

    /// Shows it and reports its id and role.
    void present(const Options& options);

protected:
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void askAboutUnsavedChanges();

    bool refusesToClose_;
    std::optional<QString> dragged_;
};

/// Opens a modal dialog, transient for the window.
void openDialog(QWidget& parent);

} // namespace dwellkey::probe
