// SPDX-License-Identifier: MIT
// The applications that the user can choose from. std only.
#pragma once

#include "platform/image.h"
#include "support/signal.h"
#include "support/url.h"

#include <string>
#include <variant>
#include <vector>

namespace dwellkey {

struct CatalogedApplication {
    Url url;
    std::string bundleIdentifier;
    std::string localizedName;
    Image icon;
};

class ApplicationCatalog {
public:
    /// Why a location is no application: one line for the user.
    struct Problem {
        std::string localizedDescription;
    };

    ApplicationCatalog() = default;
    ApplicationCatalog(const ApplicationCatalog&) = delete;
    ApplicationCatalog& operator=(const ApplicationCatalog&) = delete;
    virtual ~ApplicationCatalog() = default;

    /// Those that the desktop's menus show, each once, in no particular order.
    [[nodiscard]] virtual std::vector<CatalogedApplication> applications() const = 0;

    /// Where the application is that the user means by a location: the location itself, or that of
    /// the application behind a program's file.
    [[nodiscard]] virtual std::variant<Url, Problem> applicationAt(const Url& url) const = 0;

    /// Emitted when another call may give another result. A series of changes emits once at its
    /// beginning: let some time pass before looking.
    Signal<> didChange;
};

} // namespace dwellkey
