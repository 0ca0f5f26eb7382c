// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/launch.h"
#include "platform/linux/single_instance.h"
#include "platform/session.h"

#include <memory>
#include <variant>

namespace dwellkey {

/// The claim of a start to be the only one on its display. Either the instance, to be held until
/// everything else is gone, so that the next one finds the keys free (null where nothing can be
/// locked: the log says so); or the exit status of a start that is over already.
using SingleStart = std::variant<std::unique_ptr<SingleInstance>, int>;

[[nodiscard]] SingleStart claimDisplay(const SingleInstance::Place& place, const Launch& launch,
                                       ErrorLog& errorLog);

} // namespace dwellkey
