// SPDX-License-Identifier: MIT
#pragma once

#include "backend.h"
#include "platform/user_defaults.h"

#include <functional>
#include <string_view>

namespace dwellkey {

class UserDefaultsDriver {
public:
    UserDefaultsDriver() = default;
    UserDefaultsDriver(const UserDefaultsDriver&) = delete;
    UserDefaultsDriver& operator=(const UserDefaultsDriver&) = delete;
    virtual ~UserDefaultsDriver() = default;

    /// Another object after `restart`.
    virtual UserDefaults& store() = 0;
    /// The program ends, having synchronized, and starts again.
    virtual void restart() = 0;
    /// Another program changes the value.
    virtual void editFromOutside(std::string_view key, const DefaultsValue& value) = 0;
    /// Runs the loop until the condition holds, which it tells, or ten seconds have passed.
    virtual bool runUntil(const std::function<bool()>& condition) = 0;
};

class UserDefaultsConformance : public ConformanceTest<UserDefaultsDriver> {};

} // namespace dwellkey
