// SPDX-License-Identifier: MIT
#include "platform/linux/xml_element.h"

#include <expat.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <memory>

namespace dwellkey {
namespace {

constexpr std::size_t deepestNesting = 64;

struct FreeParser {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using ParserPtr = std::unique_ptr<XML_ParserStruct, FreeParser>;

/// The elements that are open, below one that stands for the document.
struct Build {
    XML_Parser parser;
    std::vector<XmlElement> open{1};
    bool isTooDeep = false;
};

void beginElement(void* data, const XML_Char* name, const XML_Char** attributes) {
    auto& build = *static_cast<Build*>(data);
    if (build.open.size() > deepestNesting) {
        build.isTooDeep = true;
        XML_StopParser(build.parser, XML_FALSE);
        return;
    }
    XmlElement& element = build.open.emplace_back();
    element.name = name;
    for (; *attributes != nullptr; attributes += 2) {
        element.attributes.emplace_back(attributes[0], attributes[1]);
    }
}

void endElement(void* data, const XML_Char* /*name*/) {
    auto& build = *static_cast<Build*>(data);
    if (build.isTooDeep) {
        return; // an empty element ends even after the parser was stopped
    }
    XmlElement element = std::move(build.open.back());
    build.open.pop_back();
    build.open.back().children.push_back(std::move(element));
}

std::uint64_t currentLine(XML_Parser parser) {
#ifdef XML_ATTR_DEPRECATED // it counts in 64 bits and deprecates the only way of older ones
    return XML_GetCurrentLineNumber64(parser);
#else
    return XML_GetCurrentLineNumber(parser);
#endif
}

} // namespace

std::string_view XmlElement::attribute(std::string_view attributeName) const {
    const auto found =
        std::ranges::find(attributes, attributeName, &std::pair<std::string, std::string>::first);
    return found == attributes.end() ? std::string_view() : found->second;
}

const XmlElement* XmlElement::child(std::string_view childName) const {
    const auto found = std::ranges::find(children, childName, &XmlElement::name);
    return found == children.end() ? nullptr : &*found;
}

std::variant<XmlElement, XmlProblem> parseXml(std::string_view text) {
    if (text.size() > INT_MAX) {
        return XmlProblem{"too large"};
    }
    const ParserPtr parser(XML_ParserCreate(nullptr));
    if (!parser) {
        return XmlProblem{"out of memory"};
    }
    Build build{parser.get()};
    XML_SetUserData(parser.get(), &build);
    XML_SetElementHandler(parser.get(), beginElement, endElement);
    if (XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), XML_TRUE)
        != XML_STATUS_OK) {
        const std::string reason =
            build.isTooDeep ? "too deeply nested" : XML_ErrorString(XML_GetErrorCode(parser.get()));
        return XmlProblem{"line " + std::to_string(currentLine(parser.get())) + ": " + reason};
    }
    return std::move(build.open.front().children.front());
}

} // namespace dwellkey
