// SPDX-License-Identifier: MIT
#pragma once

#include "harness/input.h"
#include "harness/services.h"
#include "harness/temporary_folder.h"
#include "platform/x11/x11_connection.h"

#include <memory>
#include <string>

namespace dwellkey {

/// An X server of this test program's own, which $DISPLAY then names.
class PrivateDisplay {
public:
    PrivateDisplay();

    /// The one that the cases of a program share; started by the first that needs it.
    static PrivateDisplay& shared();

    [[nodiscard]] const std::string& name() const { return server_.display(); }
    [[nodiscard]] const e2e::Environment& environment() const { return environment_; }
    [[nodiscard]] const std::filesystem::path& folder() const { return folder_.path(); }

    [[nodiscard]] std::unique_ptr<e2e::Keyboard> keyboard() const;
    /// Runs one of the server's own tools ("setxkbmap", ...) and throws when it fails.
    void run(const std::vector<std::string>& arguments) const;

    /// The subject's connection.
    [[nodiscard]] static std::unique_ptr<X11Connection> connect();

private:
    e2e::TemporaryFolder folder_;
    e2e::Environment environment_;
    e2e::XServer server_;
};

} // namespace dwellkey
