// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows.h"

#include <QPoint>
#include <QWidget>
#include <optional>

namespace dwellkey {

/// A small rounded window above all others that takes neither the focus nor a place in the window
/// manager's lists. The user may drag it by its background.
class QtPanelWindow : public QWidget {
public:
    /// The radius is in device-independent pixels. The support must outlive the panel.
    QtPanelWindow(PanelSupport& support, double cornerRadius);
    ~QtPanelWindow() override;

    /// Makes the native window, anew when a compositor came or went: translucency belongs to the
    /// native window for life. Do it before each showing.
    void followCompositor();

    /// Puts it in the middle of the screen of the active window.
    void centre();

protected:
    /// Gives the panel its size; runs before a native window is made.
    virtual void fitToContent() {}

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    PanelSupport& support_;
    double cornerRadius_;
    std::optional<bool> composited_; // absent until the native window exists
    std::optional<QPoint> dragOffset_;
};

} // namespace dwellkey
