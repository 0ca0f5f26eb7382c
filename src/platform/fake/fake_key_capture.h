// SPDX-License-Identifier: MIT
// Remembers who has the keyboard. std only.
#pragma once

#include "platform/key_capture.h"

namespace dwellkey {

class FakeKeyCapture final : public KeyCapture {
public:
    bool begin(std::uint32_t nativeWindow) override {
        if (isAvailable) {
            window = nativeWindow;
        }
        return isAvailable;
    }
    void end() override { window.reset(); }
    /// The native codes are the virtual ones here.
    [[nodiscard]] std::optional<std::uint32_t>
    keyCode(std::uint32_t nativeScanCode) const override {
        return nativeScanCode;
    }

    bool isAvailable = true;
    std::optional<std::uint32_t> window; // that has the keyboard
};

} // namespace dwellkey
