// SPDX-License-Identifier: MIT
#pragma once

#include "platform/fake/fake_platform.h"
#include "scenes.h"

namespace dwellkey {

/// The windows of the shortcut-binder path, from the interface files that ship. The platform must
/// outlive the scenes.
std::vector<Scene> binderScenes(FakePlatform& platform);

} // namespace dwellkey
