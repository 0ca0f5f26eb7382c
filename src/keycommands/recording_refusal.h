// SPDX-License-Identifier: MIT
// Which combinations a recorder does not take, and how it says so. std only.
#pragma once

#include "keycommands/key.h"
#include "keycommands/modifier.h"
#include "platform/platform.h"

#include <optional>
#include <string>

namespace dwellkey {

/// What the user did wrong, and how often in a row. At `countThatExplains` an alert says it.
struct FailureReason {
    static constexpr int countThatExplains = 3;

    bool operator==(const FailureReason&) const = default;

    std::string messageText;
    std::string infoText = "No failure.";
    int failureCount = 0;
};

/// A mistake of typing explains itself when it is repeated; what the desktop keeps for itself does
/// so at once, for the user cannot know.
enum class RefusalKind { typingMistake, reserved };

struct Refusal {
    RefusalKind kind = RefusalKind::typingMistake;
    FailureReason reason;
};

/// Absent when the combination may be recorded.
[[nodiscard]] std::optional<Refusal> refusalOf(Key key, const Modifiers& modifiers,
                                               Platform& platform);

} // namespace dwellkey
