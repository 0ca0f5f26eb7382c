// SPDX-License-Identifier: MIT
#include "x11_support/private_display.h"

#include "harness/failure.h"

#include <cstdlib>
#include <variant>

namespace dwellkey {

PrivateDisplay::PrivateDisplay()
    : environment_{{"PATH", std::getenv("PATH")}, {"LANG", "C.UTF-8"}, {"HOME", folder_.path()}},
      server_(environment_, folder_.path(), {800, 600}) {
    environment_["DISPLAY"] = server_.display();
    setenv("DISPLAY", server_.display().c_str(), 1);
}

PrivateDisplay& PrivateDisplay::shared() {
    static PrivateDisplay display;
    return display;
}

std::unique_ptr<e2e::Keyboard> PrivateDisplay::keyboard() const {
    return std::make_unique<e2e::Keyboard>(name(), environment_, folder());
}

void PrivateDisplay::run(const std::vector<std::string>& arguments) const {
    e2e::ChildProcess process({arguments, environment_, folder() / "tools.log"});
    if (process.awaitEnd() != e2e::ExitStatus{0, {}}) {
        throw e2e::Failure(arguments.front() + " failed: " + process.log());
    }
}

std::unique_ptr<X11Connection> PrivateDisplay::connect() {
    auto connection = X11Connection::open();
    if (const auto* reason = std::get_if<std::string>(&connection)) {
        throw e2e::Failure(*reason);
    }
    return std::get<std::unique_ptr<X11Connection>>(std::move(connection));
}

} // namespace dwellkey
