// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace dwellkey {

/// How often this program has called `operator new` so far.
std::size_t allocationCount();

} // namespace dwellkey
