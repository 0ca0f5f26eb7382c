// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace dwellkey {

/// A random (version 4) UUID. Two made by `random` are different for every practical purpose.
class Uuid {
public:
    static Uuid random();

    /// Canonical form: 36 lower-case characters.
    [[nodiscard]] std::string string() const;

    auto operator<=>(const Uuid&) const = default;

private:
    friend struct std::hash<Uuid>;
    std::array<std::uint64_t, 2> bits_{};
};

} // namespace dwellkey

template <>
struct std::hash<dwellkey::Uuid> {
    std::size_t operator()(const dwellkey::Uuid& uuid) const noexcept {
        return std::hash<std::uint64_t>{}(uuid.bits_[0] ^ uuid.bits_[1]);
    }
};
