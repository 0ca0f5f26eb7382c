// SPDX-License-Identifier: MIT
#include "harness/failure.h"

#include <cerrno>
#include <system_error>

namespace dwellkey::e2e {

void failFromErrno(const std::string& what) {
    throw Failure(what + ": " + std::generic_category().message(errno));
}

} // namespace dwellkey::e2e
