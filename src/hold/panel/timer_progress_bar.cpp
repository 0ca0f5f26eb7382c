// SPDX-License-Identifier: MIT
#include "hold/panel/timer_progress_bar.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

namespace dwellkey {
namespace {
constexpr double fillHeight = 6.0;
constexpr double cornerRadius = 4.0;
} // namespace

TimerProgressBar::TimerProgressBar(QWidget* parent) : QWidget(parent) {
    setMinimumHeight(static_cast<int>(fillHeight));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void TimerProgressBar::setProgress(double progress) {
    if (progress == progress_) {
        return;
    }
    const QRectF before = fill();
    progress_ = progress;
    const QRectF after = fill();
    // Between the two ends, and the rounded end that moves.
    const double left = std::min(before.right(), after.right()) - cornerRadius - 1;
    const double right = std::max(before.right(), after.right()) + 1;
    update(QRectF(left, 0, right - left, fillHeight).toAlignedRect());
}

QRectF TimerProgressBar::fill() const {
    return {0, 0, width() * std::max(progress_, 0.0), fillHeight};
}

void TimerProgressBar::paintEvent(QPaintEvent* event) {
    const QRectF bar = fill();
    if (bar.width() <= 0) {
        return;
    }
    QPainter painter(this);
    painter.setClipRect(event->rect());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Active, QPalette::Highlight));
    const double radius = std::min({cornerRadius, fillHeight / 2, bar.width() / 2});
    painter.drawRoundedRect(bar, radius, radius);
}

} // namespace dwellkey
