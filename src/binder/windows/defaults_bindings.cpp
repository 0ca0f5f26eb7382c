// SPDX-License-Identifier: MIT
#include "binder/windows/defaults_bindings.h"

#include "binder/fatal_error.h"
#include "binder/windows/array_controller.h"
#include "platform/user_default.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDoubleSpinBox>
#include <QSignalBlocker>
#include <QVariant>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <string>

namespace dwellkey {
namespace {

Subscription bindChoice(QComboBox& box, UserDefaults& userDefaults, const std::string& key) {
    const auto show = [&box, &userDefaults, key] {
        const auto index = UserDefault<std::int64_t>(userDefaults, key, 0).get();
        const bool isChoice = index >= 0 && index < box.count();
        box.setCurrentIndex(isChoice ? static_cast<int>(index) : -1);
    };
    QObject::connect(&box, &QComboBox::activated, &box, [&userDefaults, key](int index) {
        userDefaults.set(key, std::int64_t{index});
    });
    show();
    return userDefaults.observe(key, [show](DefaultsChange) { show(); });
}

/// As many decimals as the user sees; the rest is the noise of a subtraction.
double rounded(double value, int decimals) {
    const double factor = std::pow(10.0, decimals);
    return std::round(value * factor) / factor;
}

/// For what is below the smallest number that can be chosen.
QString textBelowRange(const QDoubleSpinBox& box, double value) {
    return value < 0.0 ? QCoreApplication::translate("DefaultsBindings", "Never")
                       : box.textFromValue(value) + box.suffix();
}

Subscription bindNumber(QDoubleSpinBox& box, UserDefaults& userDefaults, const std::string& key) {
    const QVariant minuend = box.property("minuend");
    const auto converted = [minuend](double value) { // its own inverse
        return minuend.isValid() ? minuend.toDouble() - value : value;
    };
    const auto show = [&box, &userDefaults, key, converted, lowest = box.minimum(),
                       highest = box.maximum()] {
        const double value = converted(UserDefault<double>(userDefaults, key, 0.0).get());
        const QSignalBlocker silence(box);
        // What is stored is shown, also where nobody could choose it here.
        box.setRange(std::min(value, lowest), std::max(value, highest));
        box.setSpecialValueText(value < lowest ? textBelowRange(box, value) : QString());
        box.setValue(value);
    };
    QObject::connect(&box, &QDoubleSpinBox::valueChanged, &box,
                     [&box, &userDefaults, key, converted, lowest = box.minimum()](double value) {
                         userDefaults.set(
                             key, rounded(converted(std::max(value, lowest)), box.decimals()));
                     });
    show();
    return userDefaults.observe(key, [show](DefaultsChange) { show(); });
}

} // namespace

std::vector<Subscription> bindToDefaults(QWidget& root, UserDefaults& userDefaults,
                                         std::string_view fileName) {
    std::vector<Subscription> bindings;
    for (auto* widget : root.findChildren<QWidget*>()) {
        const QVariant property = widget->property("defaultsKey");
        if (!property.isValid()) {
            continue;
        }
        const std::string key = property.toString().toStdString();
        if (auto* controller = qobject_cast<ArrayController*>(widget)) {
            controller->bindContent(userDefaults, key);
        } else if (auto* choice = qobject_cast<QComboBox*>(widget)) {
            bindings.push_back(bindChoice(*choice, userDefaults, key));
        } else if (auto* number = qobject_cast<QDoubleSpinBox*>(widget)) {
            bindings.push_back(bindNumber(*number, userDefaults, key));
        } else {
            fatalError("The interface file " + std::string(fileName) + ".ui binds \""
                       + widget->objectName().toStdString()
                       + "\" to a setting, which its class cannot.");
        }
    }
    return bindings;
}

} // namespace dwellkey
