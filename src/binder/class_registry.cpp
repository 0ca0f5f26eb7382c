// SPDX-License-Identifier: MIT
#include "binder/class_registry.h"

#include <utility>

namespace dwellkey {

void ClassRegistry::add(std::string className, Maker make) {
    makers_.insert_or_assign(std::move(className), std::move(make));
}

std::shared_ptr<RootObject> ClassRegistry::make(std::string_view className) const {
    const auto found = makers_.find(className);
    return found == makers_.end() ? nullptr : found->second();
}

} // namespace dwellkey
