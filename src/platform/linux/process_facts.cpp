// SPDX-License-Identifier: MIT
#include "platform/linux/process_facts.h"

#include "platform/linux/environment.h"
#include "platform/linux/key_file.h"
#include "platform/linux/text_file.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <variant>

namespace dwellkey {
namespace {

constexpr std::size_t largestFact = std::size_t{4} << 20U; // arguments and environment: 2 MiB each

std::optional<std::string> content(const std::string& path, FollowLinks follow = FollowLinks::yes) {
    auto read = readTextFile(path, largestFact, follow);
    auto* text = std::get_if<std::string>(&read);
    return text == nullptr ? std::nullopt : std::optional(std::move(*text));
}

bool removeSuffix(std::string_view& text, std::string_view suffix) {
    const bool has = text.ends_with(suffix);
    text.remove_suffix(has ? suffix.size() : 0);
    return has;
}

/// systemd's \xNN for a byte that a unit's name may not hold or that divides its parts.
std::string unescapedUnitPart(std::string_view part) {
    std::string result;
    for (std::size_t i = 0; i < part.size(); ++i) {
        unsigned int byte = 0;
        if (part.substr(i).starts_with("\\x") && i + 3 < part.size()
            && std::from_chars(&part[i + 2], &part[i + 2] + 2, byte, 16).ptr == &part[i + 2] + 2) {
            result += static_cast<char>(byte);
            i += 3;
        } else {
            result += part[i];
        }
    }
    return result;
}

/// The innermost scope or service of each hierarchy: an application may make groups below its own.
std::vector<std::string> unitsOf(std::string_view controlGroups) {
    std::vector<std::string> units;
    for (const std::string& line : splitList(controlGroups, '\n')) {
        const auto parts = splitList(line, '/');
        const auto unit = std::find_if(parts.rbegin(), parts.rend(), [](const std::string& part) {
            return part.ends_with(".scope") || part.ends_with(".service");
        });
        if (unit != parts.rend()) {
            units.push_back(*unit);
        }
    }
    return units;
}

std::string joined(const std::vector<std::string>& parts, std::size_t first, std::size_t end) {
    std::string result;
    for (std::size_t i = first; i < end; ++i) {
        result.append(i > first ? "-" : "").append(parts[i]);
    }
    return unescapedUnitPart(result);
}

std::vector<std::string> applicationsOfUnit(std::string_view unit) {
    const bool isScope = removeSuffix(unit, ".scope");
    if (!isScope) {
        removeSuffix(unit, ".service");
        unit = unit.substr(0, unit.find('@'));
    }
    const auto parts = splitList(unit, '-');
    const std::size_t end = parts.size() - (isScope && !parts.empty() ? 1 : 0);
    if (end < 2 || parts.front() != "app") {
        return {};
    }
    std::vector<std::string> result;
    if (end > 2) {
        result.push_back(joined(parts, 2, end)); // behind a launcher
    }
    result.push_back(joined(parts, 1, end));
    return result;
}

std::optional<SnapApplication> snapOfUnit(std::string_view unit) {
    constexpr std::string_view prefix = "snap.";
    constexpr std::size_t uuidLength = 36;
    const bool isScope = removeSuffix(unit, ".scope");
    const bool isUnit = isScope || removeSuffix(unit, ".service");
    if (!isUnit || !unit.starts_with(prefix)) {
        return std::nullopt;
    }
    unit.remove_prefix(prefix.size());
    const std::size_t dot = unit.find('.');
    if (dot == std::string_view::npos || dot == 0) {
        return std::nullopt;
    }
    std::string_view application = unit.substr(dot + 1);
    if (isScope) {
        if (application.size() <= uuidLength + 1) {
            return std::nullopt;
        }
        application.remove_suffix(uuidLength + 1); // with the '-' (older: '.') in front of it
    }
    if (application.empty()) {
        return std::nullopt;
    }
    return SnapApplication{std::string(unit.substr(0, dot)), std::string(application)};
}

} // namespace

std::optional<std::string> ProcFolderReader::executable(pid_t process) const {
    std::error_code failure;
    std::string path = std::filesystem::read_symlink(pathOf(process, "exe"), failure);
    if (failure || path.empty()) {
        return std::nullopt;
    }
    constexpr std::string_view replaced = " (deleted)";
    if (path.ends_with(replaced)) {
        path.resize(path.size() - replaced.size());
    }
    return path;
}

std::vector<std::string> ProcFolderReader::commandLine(pid_t process) const {
    return splitList(content(pathOf(process, "cmdline")).value_or(""), '\0');
}

std::optional<std::string> ProcFolderReader::environmentVariable(pid_t process,
                                                                 std::string_view name) const {
    const std::string variables = content(pathOf(process, "environ")).value_or("");
    for (const std::string& variable : splitList(variables, '\0')) {
        if (variable.starts_with(name) && variable.substr(name.size()).starts_with('=')) {
            return variable.substr(name.size() + 1);
        }
    }
    return std::nullopt;
}

std::optional<std::string> ProcFolderReader::flatpakInfo(pid_t process) const {
    // A link would lead out of the sandbox's root into our own.
    return content(pathOf(process, "root/.flatpak-info"), FollowLinks::no);
}

std::optional<std::string> ProcFolderReader::controlGroups(pid_t process) const {
    return content(pathOf(process, "cgroup"));
}

std::string ProcFolderReader::pathOf(pid_t process, std::string_view file) const {
    return folder_ + "/" + std::to_string(process) + "/" + std::string(file);
}

std::optional<std::string> flatpakApplication(std::string_view flatpakInfo) {
    KeyFileReader reader(flatpakInfo);
    while (const auto line = reader.next()) {
        if (line->kind == KeyFileLine::Kind::pair && line->group == "Application"
            && line->key == "name" && !line->value.empty()) {
            return unescapedValue(line->value);
        }
    }
    return std::nullopt;
}

std::optional<SnapApplication> snapApplication(std::string_view controlGroups) {
    for (const std::string& unit : unitsOf(controlGroups)) {
        if (auto snap = snapOfUnit(unit)) {
            return snap;
        }
    }
    return std::nullopt;
}

std::vector<std::string> sessionUnitApplications(std::string_view controlGroups) {
    for (const std::string& unit : unitsOf(controlGroups)) {
        if (auto applications = applicationsOfUnit(unit); !applications.empty()) {
            return applications;
        }
    }
    return {};
}

} // namespace dwellkey
