// SPDX-License-Identifier: MIT
#include "views/common/secondary_label.h"

#include "views/common/fonts.h"

#include <QEvent>
#include <QGuiApplication>

namespace dwellkey {

QColor secondaryTextColour(const QPalette& palette) {
    constexpr float share = 0.62F; // 4.5 to 1 and more on the desktops' light and dark windows
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    const auto mix = [](float first, float second) {
        return share * first + (1.0F - share) * second;
    };
    return QColor::fromRgbF(mix(text.redF(), window.redF()), mix(text.greenF(), window.greenF()),
                            mix(text.blueF(), window.blueF()));
}

SecondaryLabel::SecondaryLabel(const QString& text, SystemFont size, QWidget* parent,
                               QFont::Weight weight)
    : QLabel(text, parent), size_(size), weight_(weight) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setFont(fontFor(size_, weight_));
    updateColour();
}

void SecondaryLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange) {
        updateColour();
    } else if (event->type() == QEvent::ApplicationFontChange) {
        setFont(fontFor(size_, weight_));
    }
}

void SecondaryLabel::updateColour() {
    QPalette own;
    own.setColor(QPalette::WindowText, secondaryTextColour(QGuiApplication::palette()));
    setPalette(own);
}

} // namespace dwellkey
