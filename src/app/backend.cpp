// SPDX-License-Identifier: MIT
#include "app/backend.h"

#include "app/x11_backend.h"

#include <array>
#include <cstdlib>

namespace dwellkey {
namespace {

using Started = std::variant<std::unique_ptr<Backend>, std::string>;

struct Entry {
    std::string_view name;
    Started (*start)(int& argc, char** argv, ErrorLog& errorLog);
};

// Tried in this order.
constexpr auto entries = std::to_array<Entry>({
    {"x11", startX11Backend},
});

} // namespace

Started startBackend(int& argc, char** argv, ErrorLog& errorLog) {
    const char* wanted = std::getenv("DWELLKEY_BACKEND");
    std::string reasons;
    for (const Entry& entry : entries) {
        if (wanted != nullptr && entry.name != wanted) {
            continue;
        }
        auto started = entry.start(argc, argv, errorLog);
        if (std::holds_alternative<std::unique_ptr<Backend>>(started)) {
            return started;
        }
        reasons += (reasons.empty() ? "" : "; ") + std::string(entry.name) + ": "
                   + std::get<std::string>(started);
    }
    if (reasons.empty()) {
        reasons = "DWELLKEY_BACKEND names no backend of this build: \""
                  + std::string(wanted == nullptr ? "" : wanted) + '"';
    }
    return reasons;
}

} // namespace dwellkey
