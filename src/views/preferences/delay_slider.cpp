// SPDX-License-Identifier: MIT
#include "views/preferences/delay_slider.h"

#include "views/preferences/seconds_slider.h"
#include "views/preferences/symbols.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLocale>
#include <QToolTip>
#include <cmath>

namespace dwellkey {
namespace {

constexpr QSize endSymbolSize{24, 16};
constexpr int lastPosition = PreferencesViewModel::numberOfSteps - 1;

} // namespace

QString delayText(double seconds) {
    constexpr int precision = 6; // significant digits: every delay that a user would store
    return QCoreApplication::translate("DelaySlider", "%1 seconds")
        .arg(QLocale().toString(seconds, 'g', precision));
}

DelaySlider::DelaySlider(PreferencesViewModel& model, QWidget* parent)
    : QWidget(parent), model_(model), slider_(new SecondsSlider(model, this)) {
    slider_->setRange(0, lastPosition);
    slider_->setSingleStep(1);
    slider_->setPageStep(1);
    slider_->setTickInterval(1);
    slider_->setTickPosition(QSlider::TicksBelow);
    setFocusProxy(slider_);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(new SymbolView(makeTortoise(), endSymbolSize, this), 0, Qt::AlignTop);
    row->addWidget(slider_, 1);
    row->addWidget(new SymbolView(makeHare(), endSymbolSize, this), 0, Qt::AlignTop);
    connect(slider_, &QSlider::valueChanged, this, &DelaySlider::storePosition);
    refresh();
}

void DelaySlider::refresh() {
    const QSignalBlocker fromTheModel(slider_);
    slider_->setValue(static_cast<int>(std::lround(model_.delaySliderValue())));
    slider_->setToolTip(delayText(model_.delayUntilActivation()));
}

void DelaySlider::storePosition(int position) {
    model_.setDelaySliderValue(position);
    refresh();
    if (slider_->isSliderDown()) {
        QToolTip::showText(QCursor::pos(), slider_->toolTip(), slider_);
    }
}

} // namespace dwellkey
