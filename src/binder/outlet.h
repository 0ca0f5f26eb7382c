// SPDX-License-Identifier: MIT
// A controller's view of one named object of its interface file. std only.
#pragma once

#include "binder/fatal_error.h"

#include <string>
#include <string_view>

namespace dwellkey {

/// Unconnected until the interface file is loaded, and after that if the file has no such object.
/// Using it then ends the process with a message that names both. The object belongs to the
/// window, which the controller keeps for as long as the outlet.
template <typename Object>
class Outlet {
public:
    /// Both texts must outlive the outlet: they are literals.
    constexpr Outlet(std::string_view interfaceFile, std::string_view name)
        : interfaceFile_(interfaceFile), name_(name) {}

    /// Null leaves it unconnected.
    void connect(Object* object) { object_ = object; }

    [[nodiscard]] std::string_view name() const { return name_; }
    [[nodiscard]] Object& operator*() const {
        if (object_ == nullptr) {
            fatalError("The interface file " + std::string(interfaceFile_)
                       + ".ui connects no outlet \"" + std::string(name_) + "\".");
        }
        return *object_;
    }
    [[nodiscard]] Object* operator->() const { return &**this; }

private:
    std::string_view interfaceFile_;
    std::string_view name_;
    Object* object_ = nullptr;
};

} // namespace dwellkey
