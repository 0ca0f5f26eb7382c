// SPDX-License-Identifier: MIT
#pragma once

#include "keycommands/recorder/bezel_style.h"

#include <QColor>
#include <QRect>
#include <QStyleOptionButton>

class QPainter;
class QWidget;

namespace dwellkey {

/// One of two segments that share a bezel. All in the segment's own coordinates.
struct SegmentBezel {
    BezelStyle style = BezelStyle::rounded;
    QRect control;             // around both segments
    QRect segment;             // the part to draw
    QStyleOptionButton option; // the segment's state and palette

    /// Draws what is behind the segment's text or image; `widget` is the segment.
    void paint(QPainter& painter, const QWidget& widget) const;
    /// Draws the mark of the keyboard focus.
    void paintFocus(QPainter& painter, const QWidget& widget) const;
};

/// The space between the segments, in points.
[[nodiscard]] int segmentSpacing(BezelStyle style);

/// From `one` at 0 to `other` at 1.
[[nodiscard]] QColor blend(const QColor& one, const QColor& other, double share);

} // namespace dwellkey
