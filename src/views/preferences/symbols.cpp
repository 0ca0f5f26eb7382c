// SPDX-License-Identifier: MIT
#include "views/preferences/symbols.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <utility>

namespace dwellkey {
namespace {

constexpr QSizeF animalSize{24, 16};
constexpr QSizeF buttonSymbolSize{16, 16};
constexpr qreal strokeWidth = 1.6;

QPainterPath ellipse(qreal left, qreal top, qreal width, qreal height) {
    QPainterPath path;
    path.addEllipse(QRectF(left, top, width, height));
    return path;
}

QPainterPath pill(qreal left, qreal top, qreal width, qreal height) {
    QPainterPath path;
    const qreal radius = std::min(width, height) / 2;
    path.addRoundedRect(QRectF(left, top, width, height), radius, radius);
    return path;
}

QPainterPath turned(const QPainterPath& path, QPointF around, qreal degrees) {
    QTransform transform;
    transform.translate(around.x(), around.y());
    transform.rotate(degrees);
    transform.translate(-around.x(), -around.y());
    return transform.map(path);
}

/// Walks to the right: a shell with a rim, head, tail and two feet.
QPainterPath tortoise() {
    QPainterPath shell;
    shell.moveTo(3.5, 10.4);
    shell.cubicTo(3.8, 4.6, 7.2, 2, 10.8, 2);
    shell.cubicTo(14.4, 2, 17.8, 4.6, 18.1, 10.4);
    shell.closeSubpath();
    QPainterPath neck;
    neck.moveTo(16.4, 12.9);
    neck.cubicTo(18.6, 12.6, 19.2, 10.6, 19.3, 8.6);
    neck.lineTo(21.6, 9.4);
    neck.cubicTo(21.4, 11.6, 20.4, 13.8, 18.2, 14);
    neck.closeSubpath();
    QPainterPath tail;
    tail.moveTo(4.6, 11.5);
    tail.lineTo(1.2, 13.2);
    tail.lineTo(5, 13.4);
    tail.closeSubpath();
    return shell | pill(3.4, 11.3, 15, 2.1) | neck | ellipse(18.9, 6.2, 4.3, 3.9) | tail
           | pill(4.9, 12, 3, 3.6) | pill(13.4, 12, 3, 3.6);
}

/// Leaps to the right: ears laid back, legs stretched.
QPainterPath hare() {
    QPainterPath body;
    body.moveTo(3.2, 10.2);
    body.cubicTo(3.4, 6.6, 7, 5.2, 10.4, 5.7);
    body.cubicTo(13.2, 6.1, 15.4, 6.3, 17, 5.4);
    body.lineTo(19.2, 8.6);
    body.cubicTo(17.6, 10.6, 14.6, 11.8, 11.4, 11.5);
    body.cubicTo(8.4, 11.3, 5.6, 12.4, 3.9, 12.2);
    body.closeSubpath();
    const QPainterPath head = turned(ellipse(16.2, 4.3, 5.8, 4.3), {19, 6.4}, 18);
    const QPainterPath ears = turned(pill(11, 3.2, 7.4, 1.9), {18, 4.6}, 24)
                              | turned(pill(11.6, 3.6, 7, 1.8), {18, 5}, 42);
    const QPainterPath hindLeg = turned(pill(0.6, 11, 7, 2), {6, 11.6}, -24);
    const QPainterPath foreLegs = turned(pill(14.2, 9.4, 7.6, 1.7), {15, 10}, 22)
                                  | turned(pill(12.4, 10, 6.8, 1.7), {13, 10.6}, 46);
    return body | head | ears | hindLeg | foreLegs | ellipse(1.4, 6.6, 2.8, 2.6);
}

TemplateImage filled(const QPainterPath& path) {
    return {animalSize, [path](QPainter& painter, const QRectF&) {
                painter.fillPath(path, painter.pen().color());
            }};
}

void drawLine(QPainter& painter, QPointF from, QPointF to) {
    painter.setPen(QPen(painter.pen().color(), strokeWidth, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(from, to);
}

/// Paints in whatever size, at whatever density, it is asked for.
class SymbolEngine final : public QIconEngine {
public:
    SymbolEngine(TemplateImage image, QPalette palette)
        : image_(std::move(image)), palette_(std::move(palette)) {}

    void paint(QPainter* painter, const QRect& rectangle, QIcon::Mode mode,
               QIcon::State /*state*/) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        image_.paint(*painter, rectangle, palette_.color(group, QPalette::ButtonText));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap result(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return result;
    }

    [[nodiscard]] QIconEngine* clone() const override {
        return new SymbolEngine(image_, palette_); // NOLINT: the icon owns it
    }

private:
    TemplateImage image_;
    QPalette palette_;
};

} // namespace

TemplateImage makeTortoise() {
    return filled(tortoise());
}

TemplateImage makeHare() {
    return filled(hare());
}

TemplateImage makePlus() {
    return {buttonSymbolSize, [](QPainter& painter, const QRectF&) {
                drawLine(painter, {3, 8}, {13, 8});
                drawLine(painter, {8, 3}, {8, 13});
            }};
}

TemplateImage makeMinus() {
    return {buttonSymbolSize, [](QPainter& painter, const QRectF&) {
                drawLine(painter, {3, 8}, {13, 8});
            }};
}

SymbolView::SymbolView(TemplateImage image, QSize size, QWidget* parent)
    : QWidget(parent), image_(std::move(image)), size_(size) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SymbolView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    image_.paint(painter, rect(), palette().color(QPalette::WindowText));
}

QIcon symbolIcon(const TemplateImage& image, const QPalette& palette) {
    return QIcon(new SymbolEngine(image, palette)); // NOLINT: the icon owns it
}

} // namespace dwellkey
