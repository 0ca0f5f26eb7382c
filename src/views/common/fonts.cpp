// SPDX-License-Identifier: MIT
#include "views/common/fonts.h"

#include <QGuiApplication>

namespace dwellkey {

QFont fontFor(SystemFont size, QFont::Weight weight) {
    QFont font = QGuiApplication::font();
    font.setPixelSize(size.pointSize);
    font.setWeight(weight);
    return font;
}

} // namespace dwellkey
