// SPDX-License-Identifier: MIT
#include "keycommands/recorder/template_image.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <utility>

namespace dwellkey {
namespace {

constexpr QSizeF buttonImageSize{13, 13};
constexpr char32_t escapeSymbol = U'⎋';
constexpr int escapeSymbolHeight = 16;

/// For a machine that has no font with the symbol: an open ring, and an arrow out of it.
void drawEscapeSymbol(QPainter& painter, const QRectF& rectangle) {
    const QRectF ring = rectangle.adjusted(4, 4, -4, -4);
    painter.drawArc(ring, 180 * 16, 270 * 16);
    const QPointF tip = ring.topLeft();
    painter.drawLine(tip, ring.center());
    painter.drawLine(tip, tip + QPointF(ring.width() / 2.5, 0));
    painter.drawLine(tip, tip + QPointF(0, ring.height() / 2.5));
}

} // namespace

TemplateImage::TemplateImage(QSizeF size, Drawing drawing)
    : size_(size), drawing_(std::move(drawing)) {}

void TemplateImage::paint(QPainter& painter, const QRectF& rectangle, const QColor& colour) const {
    const qreal scale =
        std::min({1.0, rectangle.width() / size_.width(), rectangle.height() / size_.height()});
    const QSizeF size = size_ * scale;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rectangle.center() - QPointF(size.width() / 2, size.height() / 2));
    painter.scale(scale, scale);
    painter.setPen(colour);
    painter.setBrush(Qt::NoBrush);
    drawing_(painter, QRectF(QPointF(), size_));
    painter.restore();
}

TemplateImage makeRecordImage() {
    return {buttonImageSize, [](QPainter& painter, const QRectF& rectangle) {
                painter.drawEllipse(rectangle.adjusted(0.5, 0.5, -0.5, -0.5));
                painter.setBrush(painter.pen().color());
                painter.setPen(Qt::NoPen);
                painter.drawEllipse(rectangle.adjusted(2.5, 2.5, -2.5, -2.5));
            }};
}

TemplateImage makeDeleteImage() {
    return {buttonImageSize, [](QPainter& painter, const QRectF& rectangle) {
                QPainterPath disc;
                disc.addEllipse(rectangle);
                QPainterPath cross;
                cross.moveTo(4, 4);
                cross.lineTo(9, 9);
                cross.moveTo(9, 4);
                cross.lineTo(4, 9);
                QPainterPathStroker stroker;
                stroker.setWidth(1.5);
                stroker.setCapStyle(Qt::RoundCap);
                painter.fillPath(disc - stroker.createStroke(cross), painter.pen().color());
            }};
}

TemplateImage makeEscapeImage(QFont font) {
    font.setPixelSize(escapeSymbolHeight);
    font.setWeight(QFont::Thin);
    const QFontMetricsF metrics(font);
    const qreal side = metrics.height();
    if (!metrics.inFontUcs4(escapeSymbol)) {
        return {QSizeF(side, side), drawEscapeSymbol};
    }
    return {QSizeF(side, side), [font](QPainter& painter, const QRectF& rectangle) {
                painter.setFont(font);
                painter.drawText(rectangle, Qt::AlignCenter, QString::fromUcs4(&escapeSymbol, 1));
            }};
}

} // namespace dwellkey
