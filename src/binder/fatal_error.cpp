// SPDX-License-Identifier: MIT
#include "binder/fatal_error.h"

#include <cstdlib>
#include <iostream>

namespace dwellkey {

void fatalError(std::string_view message) {
    std::cerr << "Fatal error: " << message << std::endl;
    std::abort();
}

} // namespace dwellkey
