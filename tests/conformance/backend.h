// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>

namespace dwellkey {

/// A backend under test: makes a fresh driver for each case. Skips nothing: a backend that cannot
/// be tested here is not instantiated here.
template <typename Driver>
struct Backend {
    const char* name; // letters and digits
    std::unique_ptr<Driver> (*makeDriver)();

    friend std::ostream& operator<<(std::ostream& stream, const Backend& backend) {
        return stream << backend.name;
    }
};

template <typename Driver>
class ConformanceTest : public testing::TestWithParam<Backend<Driver>> {
protected:
    /// While what the case observes with is still there.
    void TearDown() override { driver.reset(); }

    std::unique_ptr<Driver> driver = this->GetParam().makeDriver();
};

template <typename Driver>
std::string backendName(const testing::TestParamInfo<Backend<Driver>>& info) {
    return info.param.name;
}

} // namespace dwellkey

/// In a program's own source: runs a suite on one backend.
#define DWELLKEY_CONFORMS(Suite, Driver, backend, makeDriver)                                      \
    INSTANTIATE_TEST_SUITE_P(backend, Suite,                                                       \
                             testing::Values(Backend<Driver>{#backend, makeDriver}),               \
                             backendName<Driver>)
