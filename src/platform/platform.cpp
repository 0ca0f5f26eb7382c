// SPDX-License-Identifier: MIT
#include "platform/platform.h"

#include <cassert>

namespace dwellkey {
namespace {
Platform* installed = nullptr;
} // namespace

Platform& Platform::shared() {
    assert(installed != nullptr && "the composition root installs a platform first");
    return *installed;
}

void Platform::install(Platform& platform) {
    installed = &platform;
}

} // namespace dwellkey
