// SPDX-License-Identifier: MIT
#include "keycommands/recorder/caption_label.h"

#include "keycommands/recorder/segment_bezel.h"

#include <QEvent>

namespace dwellkey {
namespace {

constexpr double textSize = 0.85;
constexpr double textWeight = 0.7; // of the text's colour against the window's

} // namespace

CaptionLabel::CaptionLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    follow();
}

void CaptionLabel::changeEvent(QEvent* event) {
    // What a style, a theme or the parent changes arrives here; what `follow` sets does not differ.
    if (event->type() == QEvent::ParentChange || event->type() == QEvent::StyleChange
        || event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        follow();
    }
    QLabel::changeEvent(event);
}

void CaptionLabel::follow() {
    const QWidget* model = parentWidget();
    if (model == nullptr) {
        return;
    }
    QPalette colours = palette();
    const QColor gray = blend(model->palette().color(QPalette::Window),
                              model->palette().color(QPalette::WindowText), textWeight);
    if (colours.color(QPalette::WindowText) != gray) {
        colours.setColor(QPalette::WindowText, gray);
        setPalette(colours);
    }
    QFont small = font();
    const double size = model->font().pointSizeF() * textSize;
    if (size > 0 && !qFuzzyCompare(small.pointSizeF(), size)) {
        small.setPointSizeF(size);
        setFont(small);
    }
}

} // namespace dwellkey
