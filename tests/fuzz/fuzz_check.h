// SPDX-License-Identifier: MIT
// How a fuzzer says that something is wrong. std only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace dwellkey::fuzz {

/// Ends the run, which keeps the input, unless `holds`.
inline void check(bool holds, const char* claim) {
    if (!holds) {
        std::fprintf(stderr, "not true: %s\n", claim);
        std::abort();
    }
}

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

} // namespace dwellkey::fuzz
