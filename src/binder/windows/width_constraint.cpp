// SPDX-License-Identifier: MIT
#include "binder/windows/width_constraint.h"

#include <QStyle>
#include <algorithm>
#include <cmath>

namespace dwellkey {

WidthConstraint::WidthConstraint(QWidget* parent) : QWidget(parent) {
    hide();
}

void WidthConstraint::setConstant(double constant) {
    constant_ = constant;
    QWidget* constrained = parentWidget();
    QWidget* track = constrained == nullptr ? nullptr : constrained->parentWidget();
    if (track == nullptr) {
        return;
    }
    const double drawn =
        std::isnan(constant) ? 0.0 : std::clamp(constant, 0.0, double{QWIDGETSIZE_MAX});
    const QRect atTheLeft(0, 0, static_cast<int>(std::lround(drawn)), track->height());
    constrained->setGeometry(
        QStyle::visualRect(track->layoutDirection(), track->rect(), atTheLeft));
}

} // namespace dwellkey
