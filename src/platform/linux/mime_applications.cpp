// SPDX-License-Identifier: MIT
#include "platform/linux/mime_applications.h"

#include "platform/linux/key_file.h"

namespace dwellkey {
namespace {

void appendIds(std::vector<std::string>& ids, std::string_view value) {
    constexpr std::string_view suffix = ".desktop";
    for (std::string& id : listValue(value)) {
        if (id.size() > suffix.size() && id.ends_with(suffix)) {
            id.resize(id.size() - suffix.size());
            ids.push_back(std::move(id));
        }
    }
}

} // namespace

MimeApplications parseMimeApplications(std::string_view text, std::string_view mimeType) {
    MimeApplications result;
    KeyFileReader reader(text);
    while (const auto line = reader.next()) {
        if (line->kind != KeyFileLine::Kind::pair || line->key != mimeType) {
            continue;
        }
        if (line->group == "Default Applications") {
            appendIds(result.defaults, line->value);
        } else if (line->group == "Added Associations") {
            appendIds(result.added, line->value);
        } else if (line->group == "Removed Associations") {
            appendIds(result.removed, line->value);
        }
    }
    return result;
}

} // namespace dwellkey
