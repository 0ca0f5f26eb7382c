// SPDX-License-Identifier: MIT
#include "views/common/fixed_window.h"

#include "views/common/icons.h"

#include <QGuiApplication>
#include <QLayout>
#include <QScreen>
#include <QShortcut>
#include <QShowEvent>
#include <QWindow>

namespace dwellkey {

FixedWindow::FixedWindow(const QString& title)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint
                           | Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint
                           | Qt::WindowCloseButtonHint) {
    setWindowTitle(title);
    setWindowIcon(loadIcon({applicationIconName}));
    auto* close = new QShortcut(QKeySequence(QKeySequence::Close), this);
    connect(close, &QShortcut::activated, this, &QWidget::close);
}

void FixedWindow::open() {
    const bool isTakenOff = isVisible() && !isMinimized() && !windowHandle()->isExposed();
    if (isTakenOff) {
        hide(); // somebody unmapped it, and the toolkit shows it only when it was hidden
    }
    if (isVisible()) {
        setWindowState(windowState() & ~Qt::WindowMinimized);
    } else {
        didSetupWindow_ = false;
        viewWillAppear();
        setUpWindow();
        show();
    }
    raise();
    activateWindow();
}

void FixedWindow::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) {
        setUpWindow();
    }
    QWidget::showEvent(event);
}

void FixedWindow::setUpWindow() {
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (didSetupWindow_ || screen == nullptr) {
        return;
    }
    layout()->activate();
    const QRect available = screen->availableGeometry();
    const QSize frame = frameGeometry().size();
    move(available.topLeft()
         + QPoint((available.width() - frame.width()) / 2,
                  (available.height() - frame.height()) / 2));
    didSetupWindow_ = true;
}

} // namespace dwellkey
