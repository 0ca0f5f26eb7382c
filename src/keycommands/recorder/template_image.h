// SPDX-License-Identifier: MIT
// Small drawings without a colour of their own.
#pragma once

#include <QColor>
#include <QRectF>
#include <QSizeF>
#include <functional>

class QFont;
class QPainter;

namespace dwellkey {

/// Drawn anew in each size and colour, and so sharp on every screen.
class TemplateImage {
public:
    /// Draws with the painter's pen colour into the rectangle (0, 0, size), in points.
    using Drawing = std::function<void(QPainter& painter, const QRectF& rectangle)>;

    TemplateImage(QSizeF size, Drawing drawing);

    /// In the middle of the rectangle, smaller in proportion where it does not fit.
    void paint(QPainter& painter, const QRectF& rectangle, const QColor& colour) const;

private:
    QSizeF size_;
    Drawing drawing_;
};

/// A dot in a ring.
[[nodiscard]] TemplateImage makeRecordImage();
/// A cross cut out of a disc.
[[nodiscard]] TemplateImage makeDeleteImage();
/// The symbol of the Escape key in the given font.
[[nodiscard]] TemplateImage makeEscapeImage(QFont font);

} // namespace dwellkey
