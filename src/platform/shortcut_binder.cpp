// SPDX-License-Identifier: MIT
#include "platform/shortcut_binder.h"

namespace dwellkey {
namespace {
ShortcutBinder* installed = nullptr;
} // namespace

ShortcutBinder* ShortcutBinder::sharedBinder() {
    return installed;
}

void ShortcutBinder::install(ShortcutBinder* binder) {
    installed = binder;
}

} // namespace dwellkey
