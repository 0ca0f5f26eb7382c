// SPDX-License-Identifier: MIT
#pragma once

#include "app/backend.h"

namespace dwellkey {

/// X11 with the services that every Linux desktop shares and the toolkit's.
std::variant<std::unique_ptr<Backend>, std::string> startX11Backend(int& argc, char** argv,
                                                                    ErrorLog& errorLog);

} // namespace dwellkey
