// SPDX-License-Identifier: MIT
// Installed applications as a test lists them. std only.
#pragma once

#include "platform/application_catalog.h"

#include <algorithm>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace dwellkey {

class FakeApplicationCatalog final : public ApplicationCatalog {
public:
    [[nodiscard]] std::vector<CatalogedApplication> applications() const override { return listed; }
    [[nodiscard]] std::variant<Url, Problem> applicationAt(const Url& url) const override {
        const auto problem = problems.find(url.absoluteString());
        if (problem != problems.end()) {
            return Problem{problem->second};
        }
        return url;
    }

    std::vector<CatalogedApplication> listed;
    std::map<std::string, std::string> problems; // by absolute URL
};

} // namespace dwellkey
