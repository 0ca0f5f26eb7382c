// SPDX-License-Identifier: MIT
// The status vocabulary of the hot-key service. std only.
#pragma once

#include <cstdint>
#include <string_view>

namespace dwellkey {

using OSStatus = std::int32_t;

inline constexpr OSStatus noErr = 0;
inline constexpr OSStatus eventInternalErr = -9868;
inline constexpr OSStatus eventNotHandledErr = -9874;
inline constexpr OSStatus eventParameterNotFoundErr = -9870;
/// Another program already holds the combination.
inline constexpr OSStatus eventHotKeyExistsErr = -9878;
/// The combination cannot be a hot key here (no such key on this keyboard or display), or the
/// reference names no registered hot key.
inline constexpr OSStatus eventHotKeyInvalidErr = -9879;

/// What a status means, for the person who reads the log; "" for `noErr` and unknown ones.
constexpr std::string_view statusDescription(OSStatus status) {
    switch (status) {
    case eventInternalErr:
        return "internal error";
    case eventNotHandledErr:
        return "the event is not for this handler";
    case eventParameterNotFoundErr:
        return "the event carries no hot-key id";
    case eventHotKeyExistsErr:
        return "the combination is already grabbed by another program";
    case eventHotKeyInvalidErr:
        return "this keyboard has no such combination";
    default:
        return "";
    }
}

} // namespace dwellkey
