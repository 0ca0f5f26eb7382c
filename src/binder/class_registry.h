// SPDX-License-Identifier: MIT
// Objects by the name of their class. std only.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace dwellkey {

/// What every class that can be made by its name derives from.
class RootObject {
public:
    RootObject() = default;
    RootObject(const RootObject&) = delete;
    RootObject& operator=(const RootObject&) = delete;
    virtual ~RootObject() = default;
};

class ClassRegistry {
public:
    using Maker = std::function<std::shared_ptr<RootObject>()>;

    /// Replaces the maker that the name has already.
    void add(std::string className, Maker make);

    /// A new object, made without arguments; null when no such class is registered.
    [[nodiscard]] std::shared_ptr<RootObject> make(std::string_view className) const;

private:
    std::map<std::string, Maker, std::less<>> makers_;
};

} // namespace dwellkey
