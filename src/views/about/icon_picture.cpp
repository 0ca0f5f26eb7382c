// SPDX-License-Identifier: MIT
#include "views/about/icon_picture.h"

#include "views/common/icons.h"

#include <QPainter>

namespace dwellkey {

IconPicture::IconPicture(const Image& image, int side, QWidget* parent)
    : QWidget(parent), icon_(loadIcon(image)) {
    setFixedSize(side, side);
}

void IconPicture::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    icon_.paint(&painter, rect());
}

} // namespace dwellkey
