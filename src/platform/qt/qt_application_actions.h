// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/application_actions.h"

namespace dwellkey {

/// Speaks org.gtk.Actions on the session bus, asynchronously: an application that does not answer
/// within a second is treated as one that exports nothing.
class QtApplicationActions final : public ApplicationActions {
public:
    void activate(const ActionAddress& address, pid_t process, std::string_view action,
                  std::function<void()> otherwise) override;
};

} // namespace dwellkey
