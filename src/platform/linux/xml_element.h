// SPDX-License-Identifier: MIT
// Small XML files as trees. std only; expat inside.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace dwellkey {

/// An element without its character data, which no file that is read here uses.
struct XmlElement {
    std::string name;
    std::vector<std::pair<std::string, std::string>> attributes;
    std::vector<XmlElement> children;

    /// "" when there is none of this name.
    [[nodiscard]] std::string_view attribute(std::string_view attributeName) const;
    /// The first one of this name; null without any.
    [[nodiscard]] const XmlElement* child(std::string_view childName) const;
};

struct XmlProblem {
    std::string cause; ///< one line with the line number, for a log
};

/// The root element. Nesting deeper than 64 elements is refused; outside entities are not read.
std::variant<XmlElement, XmlProblem> parseXml(std::string_view text);

} // namespace dwellkey
