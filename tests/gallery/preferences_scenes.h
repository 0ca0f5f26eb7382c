// SPDX-License-Identifier: MIT
#pragma once

#include "scenes.h"

namespace dwellkey {

/// The preferences window in each of its states, and what it opens.
std::vector<Scene> preferencesScenes();

} // namespace dwellkey
