// SPDX-License-Identifier: MIT
#include "binder/listed_application.h"

namespace dwellkey {

std::string listedApplicationName(std::string_view path) {
    constexpr std::string_view entrySuffix = ".desktop";
    constexpr std::string_view applicationSuffix = ".app";
    while (path.size() > 1 && path.ends_with('/')) {
        path.remove_suffix(1);
    }
    std::string name(path.substr(path.rfind('/') + 1));
    if (name.ends_with(entrySuffix)) {
        name.resize(name.size() - entrySuffix.size());
    }
    for (auto at = name.find(applicationSuffix); at != std::string::npos;
         at = name.find(applicationSuffix, at)) {
        name.erase(at, applicationSuffix.size());
    }
    return name;
}

} // namespace dwellkey
