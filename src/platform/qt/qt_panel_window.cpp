// SPDX-License-Identifier: MIT
#include "platform/qt/qt_panel_window.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <algorithm>

namespace dwellkey {
namespace {

constexpr float translucency = 0.94F;
constexpr float edgeAlpha = 0.18F;

/// The screen whose native pixels hold the point.
QScreen* screenAt(const PanelSupport::Point& point) {
    const auto screens = QGuiApplication::screens();
    const auto found = std::ranges::find_if(screens, [&](const QScreen* screen) {
        const QRect logical = screen->geometry(); // its origin is native, its size is not
        const QSizeF size = QSizeF(logical.size()) * screen->devicePixelRatio();
        return QRect(logical.topLeft(), size.toSize()).contains(point.x, point.y);
    });
    return found == screens.end() ? nullptr : *found;
}

} // namespace

QtPanelWindow::QtPanelWindow(PanelSupport& support, double cornerRadius)
    : QWidget(nullptr, Qt::Window | Qt::BypassWindowManagerHint | Qt::FramelessWindowHint
                           | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus),
      support_(support), cornerRadius_(cornerRadius) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_X11NetWmWindowTypeNotification);
    setAttribute(Qt::WA_OpaquePaintEvent, false);
    setFocusPolicy(Qt::NoFocus);
}

QtPanelWindow::~QtPanelWindow() = default;

void QtPanelWindow::followCompositor() {
    const bool composited = support_.isComposited();
    const bool isThere = testAttribute(Qt::WA_WState_Created); // unless somebody destroyed it
    if (isThere && composited_ == composited) {
        return;
    }
    if (isThere) {
        destroy();
    }
    composited_ = composited;
    setAttribute(Qt::WA_TranslucentBackground, composited);
    fitToContent();
    create();
    const auto native = static_cast<std::uint32_t>(winId());
    support_.keepAbove(native);
    if (composited) {
        support_.blurBehind(native);
    }
}

void QtPanelWindow::centre() {
    const auto active = support_.activeWindowCentre();
    QScreen* screen = active ? screenAt(*active) : nullptr;
    if (screen == nullptr) {
        screen = QGuiApplication::primaryScreen();
    }
    if (screen == nullptr) {
        return; // no screen at all: nowhere to move it
    }
    const QRect available = screen->availableGeometry();
    move(available.topLeft()
         + QPoint((available.width() - width()) / 2, (available.height() - height()) / 2));
}

void QtPanelWindow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QColor backdrop = palette().color(QPalette::Active, QPalette::Window);
    backdrop.setAlphaF(composited_.value_or(false) ? translucency : 1.0F);
    QColor edge = palette().color(QPalette::Active, QPalette::WindowText);
    edge.setAlphaF(edgeAlpha);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edge, 1));
    painter.setBrush(backdrop);
    // Without a compositor there is nothing to see through at the corners.
    const double radius = composited_.value_or(false) ? cornerRadius_ : 0.0;
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

// The window manager does not know this window, so dragging it by its background is ours to do.

void QtPanelWindow::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        dragOffset_ = event->globalPosition().toPoint() - pos();
    }
}

void QtPanelWindow::mouseMoveEvent(QMouseEvent* event) {
    if (dragOffset_) {
        move(event->globalPosition().toPoint() - *dragOffset_);
    }
}

void QtPanelWindow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        dragOffset_.reset();
    }
}

} // namespace dwellkey
