// SPDX-License-Identifier: MIT
#pragma once

#include "backend.h"
#include "platform/keyboard.h"

namespace dwellkey {

enum class TestedLayout { us, french };

class KeyboardLayoutDriver {
public:
    KeyboardLayoutDriver() = default;
    KeyboardLayoutDriver(const KeyboardLayoutDriver&) = delete;
    KeyboardLayoutDriver& operator=(const KeyboardLayoutDriver&) = delete;
    virtual ~KeyboardLayoutDriver() = default;

    virtual KeyboardLayout& layout() = 0;
    /// Returns once the service can see the new layout.
    virtual void use(TestedLayout layout) = 0;
};

class KeyboardLayoutConformance : public ConformanceTest<KeyboardLayoutDriver> {};

} // namespace dwellkey
