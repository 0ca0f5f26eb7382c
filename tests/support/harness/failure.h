// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

namespace dwellkey::e2e {

/// What a test cannot go on without did not happen; the message names the cause.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Throws a Failure of `what` and the text of the present errno.
[[noreturn]] void failFromErrno(const std::string& what);

} // namespace dwellkey::e2e
