// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace dwellkey {

/// The fill of the hold panel: a solid layer in the accent colour that the desktop had when it was
/// made. It draws nothing else.
class ProgressBar final : public QWidget {
    Q_OBJECT

public:
    struct FromInterfaceFile {};
    ProgressBar(FromInterfaceFile tag, QWidget* parent);

    /// It exists in interface files only: ends the process.
    explicit ProgressBar(const QRect& frame);
};

} // namespace dwellkey
