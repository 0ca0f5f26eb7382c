// SPDX-License-Identifier: MIT
#include "platform/linux/desktop_entry.h"

#include "platform/linux/exec_command.h"
#include "platform/linux/key_file.h"
#include "platform/linux/text_file.h"

#include <array>
#include <cstddef>
#include <limits>
#include <utility>

namespace dwellkey {
namespace {

constexpr std::size_t largestEntry = std::size_t{1} << 20U;
constexpr std::string_view mainGroup = "Desktop Entry";

DesktopEntryProblem problem(const KeyFileLine& line, const std::string& what) {
    return {"line " + std::to_string(line.number) + ": " + what};
}

struct StringField {
    std::string_view key;
    std::optional<std::string> DesktopEntry::*member;
};
constexpr std::array stringFields = {
    StringField{"Exec", &DesktopEntry::exec},
    StringField{"TryExec", &DesktopEntry::tryExec},
    StringField{"StartupWMClass", &DesktopEntry::startupWmClass},
    StringField{"X-Flatpak", &DesktopEntry::flatpakId},
    StringField{"X-SnapInstanceName", &DesktopEntry::snapInstanceName},
};

struct ListField {
    std::string_view key;
    std::vector<std::string> DesktopEntry::*member;
};
constexpr std::array listFields = {
    ListField{"MimeType", &DesktopEntry::mimeTypes},
    ListField{"Categories", &DesktopEntry::categories},
};

struct BooleanField {
    std::string_view key;
    bool DesktopEntry::*member;
};
constexpr std::array booleanFields = {
    BooleanField{"NoDisplay", &DesktopEntry::noDisplay},
    BooleanField{"Hidden", &DesktopEntry::hidden},
    BooleanField{"DBusActivatable", &DesktopEntry::dbusActivatable},
};

/// Keeps the best of a key's translations.
class LocalisedText {
public:
    void offer(const KeyFileLine& line, const LocaleNames& locales) {
        constexpr std::size_t untranslated = std::numeric_limits<std::size_t>::max() - 1;
        const auto rank = line.locale.empty() ? untranslated : locales.rank(line.locale);
        if (rank && *rank < rank_) {
            rank_ = *rank;
            value_ = line.value;
        }
    }

    /// Absent when there was none, or only an empty one.
    [[nodiscard]] std::optional<std::string> text() const {
        return value_.empty() ? std::nullopt : std::optional(unescapedValue(value_));
    }

private:
    std::size_t rank_ = std::numeric_limits<std::size_t>::max();
    std::string_view value_;
};

/// Takes the pairs of the main group and makes the entry of them.
class EntryBuilder {
public:
    explicit EntryBuilder(const LocaleNames& locales) : locales_(locales) {}

    void take(const KeyFileLine& line) {
        if (line.key == "Name") {
            name_.offer(line, locales_);
        } else if (line.key == "Icon") {
            icon_.offer(line, locales_);
        } else if (line.locale.empty()) {
            takePlain(line);
        }
    }

    DesktopEntryResult finish() {
        if (entry_.hidden) {
            return std::move(entry_);
        }
        if (type_ != "Application") {
            return DesktopEntryProblem{"its Type is '" + type_ + "', not 'Application'"};
        }
        auto name = name_.text();
        if (!name) {
            return DesktopEntryProblem{"it has no Name"};
        }
        entry_.name = std::move(*name);
        entry_.icon = icon_.text();
        return std::move(entry_);
    }

private:
    void takePlain(const KeyFileLine& line) {
        if (line.key == "Type") {
            type_ = unescapedValue(line.value);
        }
        for (const auto& [key, member] : stringFields) {
            if (line.key == key && !line.value.empty()) {
                entry_.*member = unescapedValue(line.value);
            }
        }
        for (const auto& [key, member] : listFields) {
            if (line.key == key) {
                entry_.*member = listValue(line.value);
            }
        }
        for (const auto& [key, member] : booleanFields) {
            if (line.key == key) {
                entry_.*member = line.value == "true" || line.value == "1";
            }
        }
    }

    const LocaleNames& locales_;
    DesktopEntry entry_;
    std::string type_;
    LocalisedText name_;
    LocalisedText icon_;
};

} // namespace

DesktopEntryResult parseDesktopEntry(std::string_view text, const LocaleNames& locales) {
    if (text.find('\0') != std::string_view::npos) {
        return DesktopEntryProblem{"it is not a text"};
    }
    EntryBuilder builder(locales);
    bool inMainGroup = false;
    KeyFileReader reader(text);
    while (const auto line = reader.next()) {
        if (line->kind == KeyFileLine::Kind::malformed) {
            return problem(*line, "neither a [group] nor a key=value pair");
        }
        if (line->kind == KeyFileLine::Kind::pair) {
            if (!inMainGroup) {
                return problem(*line, "a key before the first group");
            }
            builder.take(*line);
        } else if (inMainGroup) {
            return builder.finish(); // the main group comes first; what follows are its actions
        } else if (line->group == mainGroup) {
            inMainGroup = true;
        } else {
            return problem(*line, "the first group is not [Desktop Entry]");
        }
    }
    if (!inMainGroup) {
        return DesktopEntryProblem{"it has no group [Desktop Entry]"};
    }
    return builder.finish();
}

DesktopEntryResult readDesktopEntry(const std::string& path, const LocaleNames& locales) {
    const auto content = readTextFile(path, largestEntry);
    if (const auto* unread = std::get_if<FileProblem>(&content)) {
        return DesktopEntryProblem{unread->cause};
    }
    auto result = parseDesktopEntry(std::get<std::string>(content), locales);
    if (auto* unparsed = std::get_if<DesktopEntryProblem>(&result)) {
        unparsed->cause = path + ": " + unparsed->cause;
    }
    return result;
}

std::optional<Program> programOf(const DesktopEntry& entry) {
    if (entry.exec) {
        auto words = parseExec(*entry.exec);
        if (auto* command = std::get_if<CommandWords>(&words)) {
            if (auto program = programOf(std::move(*command))) {
                return program;
            }
        }
    }
    return entry.tryExec ? programOf(CommandWords{*entry.tryExec}) : std::nullopt;
}

} // namespace dwellkey
