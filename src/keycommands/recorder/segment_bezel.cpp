// SPDX-License-Identifier: MIT
#include "keycommands/recorder/segment_bezel.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QWidget>
#include <cmath>
#include <optional>

namespace dwellkey {
namespace {

constexpr int separatedSpacing = 4;
constexpr double flatRadius = 6;
constexpr int focusInset = 3;

bool isPressed(const QStyleOption& option) {
    return (option.state & (QStyle::State_Sunken | QStyle::State_On)) != 0;
}

bool isHovered(const QStyleOption& option) {
    return (option.state & QStyle::State_MouseOver) != 0;
}

bool showsFocus(const QStyleOption& option) {
    const auto both = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    return (option.state & both) == both;
}

QColor outline(const QStyleOption& option) {
    const QPalette& palette = option.palette;
    return showsFocus(option)
               ? palette.color(QPalette::Highlight)
               : blend(palette.color(QPalette::Button), palette.color(QPalette::ButtonText), 0.35);
}

/// The push button of the desktop's style, of which `clip` shows.
void paintPushButton(QPainter& painter, QStyleOptionButton option, const QRect& button,
                     const QRect& clip, const QWidget& widget) {
    painter.save();
    painter.setClipRect(clip);
    option.rect = button;
    widget.style()->drawControl(QStyle::CE_PushButtonBevel, &option, &painter, &widget);
    painter.restore();
}

void paintShape(QPainter& painter, const SegmentBezel& bezel, double radius) {
    const QPalette& palette = bezel.option.palette;
    QColor fill = palette.color(QPalette::Button);
    const QColor text = palette.color(QPalette::ButtonText);
    fill = isPressed(bezel.option)   ? blend(fill, text, 0.2)
           : isHovered(bezel.option) ? blend(fill, text, 0.08)
                                     : blend(fill, palette.color(QPalette::Base), 0.5);
    painter.save();
    painter.setClipRect(bezel.segment);
    painter.setRenderHint(QPainter::Antialiasing, radius > 0);
    painter.setPen(outline(bezel.option));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(bezel.control).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.restore();
}

void paintBorderLayer(QPainter& painter, const SegmentBezel& bezel) {
    QColor fill = Qt::transparent;
    if (isPressed(bezel.option) || isHovered(bezel.option)) {
        fill = bezel.option.palette.color(QPalette::WindowText);
        fill.setAlphaF(isPressed(bezel.option) ? 0.16F : 0.07F);
    }
    painter.save();
    painter.setClipRect(bezel.segment);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(outline(bezel.option));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(bezel.control).adjusted(1, 1, -1, -1), flatRadius, flatRadius);
    painter.restore();
}

/// The line between the segments covers this share of the height; absent: none is drawn.
std::optional<double> splitterShare(BezelStyle style) {
    switch (style) {
    case BezelStyle::flat:
        return 0.5;
    case BezelStyle::rounded:
    case BezelStyle::capsule:
    case BezelStyle::square:
        return 1.0;
    case BezelStyle::separated:
        break;
    }
    return std::nullopt;
}

/// Drawn by the wider segment at the edge that it shares with the other one, and by either as a
/// part of its focus ring; the ring of a push button is its style's affair.
void paintSplitter(QPainter& painter, const SegmentBezel& bezel) {
    const auto share = splitterShare(bezel.style);
    QStyleOptionButton option = bezel.option;
    if (bezel.style == BezelStyle::rounded) {
        option.state &= ~QStyle::State_HasFocus;
    }
    const bool isWider = bezel.segment.width() > bezel.control.width() / 2;
    if (!share || (!isWider && !showsFocus(option))) {
        return;
    }
    const bool isAtRight = bezel.segment.right() < bezel.control.right();
    const double x = isAtRight ? bezel.segment.right() + 0.5 : bezel.segment.left() + 0.5;
    const double inset = bezel.style == BezelStyle::square ? 0 : 2;
    const double half = (bezel.control.height() - 2 * inset) * *share / 2;
    const double middle = QRectF(bezel.control).center().y();
    painter.save();
    painter.setPen(outline(option));
    painter.drawLine(QLineF(x, middle - half, x, middle + half));
    painter.restore();
}

} // namespace

void SegmentBezel::paint(QPainter& painter, const QWidget& widget) const {
    switch (style) {
    case BezelStyle::rounded:
        paintPushButton(painter, option, control, segment, widget);
        break;
    case BezelStyle::separated:
        paintPushButton(painter, option, segment, segment, widget);
        break;
    case BezelStyle::capsule:
        paintShape(painter, *this, control.height() / 2.0);
        break;
    case BezelStyle::square:
        paintShape(painter, *this, 0);
        break;
    case BezelStyle::flat:
        paintBorderLayer(painter, *this);
        break;
    }
    paintSplitter(painter, *this);
}

void SegmentBezel::paintFocus(QPainter& painter, const QWidget& widget) const {
    if ((option.state & QStyle::State_HasFocus) == 0) {
        return;
    }
    QStyleOptionFocusRect focus;
    focus.initFrom(&widget);
    focus.rect = segment.adjusted(focusInset, focusInset, -focusInset, -focusInset);
    focus.backgroundColor = option.palette.color(QPalette::Button);
    widget.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, &widget);
}

int segmentSpacing(BezelStyle style) {
    return style == BezelStyle::separated ? separatedSpacing : 0;
}

QColor blend(const QColor& one, const QColor& other, double share) {
    const auto mix = [share](int from, int to) {
        return static_cast<int>(std::lround(from + (to - from) * share));
    };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()),
            mix(one.blue(), other.blue())};
}

} // namespace dwellkey
