// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace dwellkey {

/// A window as large as its content, which the user cannot resize. It stands in the middle of the
/// main screen each time it appears, and stays where the user put it until it is closed. Closing
/// hides it; the keys of the desktop for closing a window do so, too.
class FixedWindow : public QWidget {
public:
    explicit FixedWindow(const QString& title);

    /// Shows the window, or brings it forward when it is open.
    void open();

protected:
    /// Before the window appears, each time.
    virtual void viewWillAppear() {}

    /// The window must have got its layout by now.
    void showEvent(QShowEvent* event) override;

private:
    void setUpWindow();

    bool didSetupWindow_ = false;
};

} // namespace dwellkey
