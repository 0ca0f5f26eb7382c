// SPDX-License-Identifier: MIT
#pragma once

#include "platform/localization.h"

namespace dwellkey {

/// The translators that are installed in the application.
class QtLocalizer final : public Localizer {
public:
    [[nodiscard]] std::string localized(const char* context, const char* text) const override;
};

} // namespace dwellkey
