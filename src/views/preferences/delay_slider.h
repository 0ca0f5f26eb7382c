// SPDX-License-Identifier: MIT
#pragma once

#include "platform/once_per_turn.h"
#include "settings/preferences_view_model.h"

#include <QSlider>
#include <QWidget>

namespace dwellkey {

/// Slowest at its start, fastest at its end, with a tortoise and a hare to say so. The arrow keys
/// go from one delay to the next. The tooltip, and what accessibility is told, is the delay in
/// force, in seconds: until the slider is moved that may be one that it cannot select.
class DelaySlider final : public QWidget {
    Q_OBJECT

public:
    /// The model must outlive the slider.
    explicit DelaySlider(PreferencesViewModel& model, QWidget* parent = nullptr);

    /// Follows the model.
    void refresh();

    [[nodiscard]] QSlider& slider() const { return *slider_; }

private:
    void storePosition(int position);

    PreferencesViewModel& model_;
    QSlider* slider_;
};

/// The delay in force for the user to read: "1.9 seconds".
QString delayText(double seconds);

} // namespace dwellkey
