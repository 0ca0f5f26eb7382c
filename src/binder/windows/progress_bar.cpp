// SPDX-License-Identifier: MIT
#include "binder/windows/progress_bar.h"

#include "binder/fatal_error.h"

#include <QPalette>

namespace dwellkey {

ProgressBar::ProgressBar(FromInterfaceFile /*tag*/, QWidget* parent) : QWidget(parent) {
    QPalette own = palette();
    own.setColor(QPalette::Window, own.color(QPalette::Active, QPalette::Highlight));
    setPalette(own);
    setAutoFillBackground(true);
}

ProgressBar::ProgressBar(const QRect& /*frame*/) {
    fatalError("Use of unimplemented initializer 'init(frame:)' for class 'Dwellkey.ProgressBar'");
}

} // namespace dwellkey
