// SPDX-License-Identifier: MIT
#include "app/single_start.h"

#include <cstdlib>
#include <utility>

namespace dwellkey {

SingleStart claimDisplay(const SingleInstance::Place& place, const Launch& launch,
                         ErrorLog& errorLog) {
    auto claim = SingleInstance::claim(place, launch, {});
    if (std::holds_alternative<SingleInstance::Answered>(claim)) {
        return EXIT_SUCCESS;
    }
    if (const auto* blocked = std::get_if<SingleInstance::Blocked>(&claim)) {
        errorLog.error("Another Dwellkey does not answer and cannot be ended.", blocked->cause);
        return EXIT_FAILURE;
    }
    if (const auto* unavailable = std::get_if<SingleInstance::Unavailable>(&claim)) {
        errorLog.error("Starting Dwellkey again will not find this one.", unavailable->cause);
        return std::unique_ptr<SingleInstance>();
    }
    return std::get<std::unique_ptr<SingleInstance>>(std::move(claim));
}

} // namespace dwellkey
