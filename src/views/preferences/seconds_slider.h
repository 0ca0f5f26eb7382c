// SPDX-License-Identifier: MIT
#pragma once

#include "settings/preferences_view_model.h"

#include <QSlider>

namespace dwellkey {

/// The delays by their positions, which accessibility reads and sets in seconds.
class SecondsSlider final : public QSlider {
    Q_OBJECT

public:
    /// The model must outlive the slider.
    SecondsSlider(PreferencesViewModel& model, QWidget* parent);

    [[nodiscard]] PreferencesViewModel& model() const { return model_; }

private:
    PreferencesViewModel& model_;
};

} // namespace dwellkey
