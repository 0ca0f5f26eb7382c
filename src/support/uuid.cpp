// SPDX-License-Identifier: MIT
#include "support/uuid.h"

#include <random>
#include <string_view>

namespace dwellkey {

Uuid Uuid::random() {
    static std::mt19937_64 generator = [] {
        std::random_device device;
        std::seed_seq seed{device(), device(), device(), device(), device(), device()};
        return std::mt19937_64(seed);
    }();
    Uuid uuid;
    uuid.bits_[0] = (generator() & ~0xf000ULL) | 0x4000ULL;         // version 4
    uuid.bits_[1] = (generator() & ~(3ULL << 62U)) | (2ULL << 62U); // RFC 4122 variant
    return uuid;
}

std::string Uuid::string() const {
    static constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (unsigned nibble = 0; nibble < 32; ++nibble) {
        if (nibble == 8 || nibble == 12 || nibble == 16 || nibble == 20) {
            text += '-';
        }
        text += digits[(bits_[nibble / 16] >> (60U - 4U * (nibble % 16U))) & 0xfU];
    }
    return text;
}

} // namespace dwellkey
