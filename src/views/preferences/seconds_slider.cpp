// SPDX-License-Identifier: MIT
#include "views/preferences/seconds_slider.h"

#include "views/preferences/delay_slider.h"

#include <QAccessibleWidget>
#include <algorithm>
#include <cmath>

namespace dwellkey {
namespace {

class SecondsSliderAccessible final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit SecondsSliderAccessible(SecondsSlider& slider)
        : QAccessibleWidget(&slider, QAccessible::Slider), slider_(slider) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) {
            return static_cast<QAccessibleValueInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(type);
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value) {
            return delayText(slider_.model().delayUntilActivation());
        }
        return QAccessibleWidget::text(kind);
    }

    [[nodiscard]] QVariant currentValue() const override {
        return slider_.model().delayUntilActivation();
    }

    void setCurrentValue(const QVariant& value) override {
        const double seconds = value.toDouble();
        const auto& options = PreferencesViewModel::delayOptions;
        const auto* nearest = std::ranges::min_element(
            options, {}, [seconds](double option) { return std::abs(option - seconds); });
        slider_.setValue(static_cast<int>(nearest - options.begin()));
    }

    [[nodiscard]] QVariant minimumValue() const override {
        return PreferencesViewModel::delayMinValue;
    }
    [[nodiscard]] QVariant maximumValue() const override {
        return PreferencesViewModel::delayMaxValue;
    }
    [[nodiscard]] QVariant minimumStepSize() const override { return {}; }

private:
    SecondsSlider& slider_;
};

QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
    auto* slider = qobject_cast<SecondsSlider*>(object);
    return slider == nullptr ? nullptr : new SecondsSliderAccessible(*slider); // NOLINT: Qt's
}

} // namespace

SecondsSlider::SecondsSlider(PreferencesViewModel& model, QWidget* parent)
    : QSlider(Qt::Horizontal, parent), model_(model) {
    [[maybe_unused]] static const bool isInstalled = [] {
        QAccessible::installFactory(makeAccessible);
        return true;
    }();
}

} // namespace dwellkey
