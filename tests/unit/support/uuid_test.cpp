// SPDX-License-Identifier: MIT
#include "support/uuid.h"

#include <gmock/gmock.h>

#include <unordered_set>

namespace dwellkey {
namespace {

TEST(Uuid, random_isACanonicalVersion4Uuid) {
    EXPECT_THAT(Uuid::random().string(),
                testing::MatchesRegex("[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}"
                                      "-[0-9a-f]{12}"));
}

TEST(Uuid, random_neverRepeats) {
    std::unordered_set<Uuid> seen;
    for (int i = 0; i < 10'000; ++i) {
        EXPECT_TRUE(seen.insert(Uuid::random()).second);
    }
}

} // namespace
} // namespace dwellkey
