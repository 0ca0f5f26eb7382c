// SPDX-License-Identifier: MIT
#include "platform/linux/desktop_entry_index.h"

#include "platform/linux/exec_command.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <utility>

namespace dwellkey {
namespace {

std::string lowerCase(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), [](unsigned char c) { return std::tolower(c); });
    return result;
}

/// What "GNOME Text-Editor" and "gnome-text-editor" have in common.
std::string folded(std::string_view name) {
    std::string result = lowerCase(name);
    std::erase_if(result, [](char c) { return c == '-' || c == '_' || c == ' '; });
    return result;
}

/// "org.gnome.TextEditor" ends in "TextEditor" and "gnomeTextEditor". A name with fewer than two
/// dots is no reversed domain name and has no such tails ("notepad.exe").
std::vector<std::string> foldedTails(std::string_view name) {
    if (std::ranges::count(name, '.') < 2) {
        return {};
    }
    const std::size_t last = name.rfind('.');
    const std::size_t secondLast = name.rfind('.', last - 1);
    const std::string tail = folded(name.substr(last + 1));
    return {tail, folded(name.substr(secondLast + 1, last - secondLast - 1)) + tail};
}

std::optional<std::string> resolved(const std::string& path) {
    struct Free {
        void operator()(char* text) const { std::free(text); }
    };
    const std::unique_ptr<char, Free> real(::realpath(path.c_str(), nullptr));
    return real ? std::optional<std::string>(real.get()) : std::nullopt;
}

bool isExecutableFile(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode)
           && ::access(path.c_str(), X_OK) == 0;
}

bool isEntryOrFolder(std::string_view name, bool isFolder) {
    return isFolder || name.ends_with(".desktop");
}

} // namespace

DesktopEntryIndex::DesktopEntryIndex(RunLoop& runLoop, std::vector<std::string> folders,
                                     LocaleNames locales, std::vector<std::string> searchPath)
    : folders_(std::move(folders)), locales_(std::move(locales)),
      searchPath_(std::move(searchPath)), watch_(runLoop, [this] {
          tables_.reset();
          didChange.emit();
      }) {}

DesktopEntryIndex::Tables& DesktopEntryIndex::tables() const {
    if (tables_) {
        return *tables_;
    }
    watch_.arm();
    Tables tables;
    tables.scanned = scanApplicationFolders(folders_, locales_, [this](const std::string& folder) {
        watch_.add(folder, isEntryOrFolder);
    });
    const auto& applications = tables.scanned.applications;
    for (std::size_t i = 0; i < applications.size(); ++i) {
        const InstalledApplication& application = applications[i];
        tables.byId[application.id].push_back(i);
        tables.byFoldedId[folded(application.id)].push_back(i);
        for (const std::string& tail : foldedTails(application.id)) {
            tables.byFoldedTail[tail].push_back(i);
        }
        if (const auto& wmClass = application.entry.startupWmClass) {
            tables.byStartupWmClass[*wmClass].push_back(i);
            tables.byLowerCaseStartupWmClass[lowerCase(*wmClass)].push_back(i);
        }
    }
    return tables_.emplace(std::move(tables));
}

const DesktopEntryIndex::Programs& DesktopEntryIndex::programs() const {
    Tables& all = tables();
    if (all.programs) {
        return *all.programs;
    }
    Programs programs;
    const auto& applications = all.scanned.applications;
    for (std::size_t i = 0; i < applications.size(); ++i) {
        const auto program = programOf(applications[i].entry);
        if (!program || isInterpreter(program->name)) {
            continue;
        }
        programs.byBaseName[std::string(baseName(program->name))].push_back(i);
        if (auto path = resolvedProgram(program->name)) {
            programs.byPath[std::move(*path)].push_back(i);
        }
    }
    return all.programs.emplace(std::move(programs));
}

const InstalledApplication* DesktopEntryIndex::byId(std::string_view id) const {
    return only(tables().byId, id);
}

const InstalledApplication* DesktopEntryIndex::byStartupWmClass(std::string_view wmClass) const {
    const Tables& all = tables();
    const auto* exact = preferredOfClass(all.byStartupWmClass, wmClass, wmClass);
    return exact != nullptr
               ? exact
               : preferredOfClass(all.byLowerCaseStartupWmClass, lowerCase(wmClass), wmClass);
}

const InstalledApplication* DesktopEntryIndex::byWindowClass(std::string_view wmClass) const {
    if (wmClass.empty()) {
        return nullptr;
    }
    if (const auto* exact = byId(wmClass)) {
        return exact;
    }
    if (const auto* lower = byId(lowerCase(wmClass))) {
        return lower;
    }
    const Tables& all = tables();
    const std::string name = folded(wmClass);
    if (const auto* alike = only(all.byFoldedId, name)) {
        return alike;
    }
    // Two reversed domain names are never matched by their tails: "com.foo.Editor" is not
    // "org.bar.Editor".
    const auto tails = foldedTails(wmClass);
    if (tails.empty()) {
        return only(all.byFoldedTail, name);
    }
    for (const std::string& tail : tails) {
        if (const auto* alike = only(all.byFoldedId, tail)) {
            return alike;
        }
    }
    return nullptr;
}

const InstalledApplication* DesktopEntryIndex::byExecutable(const std::string& path) const {
    const Programs& all = programs();
    const std::string real = resolved(path).value_or(path); // gone when it was just upgraded
    if (all.byPath.contains(real)) {
        return likeliestStarted(all.byPath, real);
    }
    return likeliestStarted(all.byBaseName, baseName(path));
}

const InstalledApplication* DesktopEntryIndex::byFlatpakId(std::string_view id) const {
    if (const auto* named = byId(id)) {
        return named;
    }
    return onlyWhere([id](const InstalledApplication& application) {
        return application.entry.flatpakId == id;
    });
}

const InstalledApplication* DesktopEntryIndex::bySnapInstanceName(std::string_view name) const {
    const std::string prefix = std::string(name) + "_";
    if (const auto* main = byId(prefix + std::string(name))) {
        return main;
    }
    return onlyWhere([&](const InstalledApplication& application) {
        return application.entry.snapInstanceName == name || application.id.starts_with(prefix);
    });
}

const std::vector<InstalledApplication>& DesktopEntryIndex::applications() const {
    return tables().scanned.applications;
}

const std::vector<DesktopEntryProblem>& DesktopEntryIndex::skipped() const {
    return tables().scanned.skipped;
}

const std::vector<std::string>& DesktopEntryIndex::leftOut() const {
    return tables().scanned.leftOut;
}

const std::optional<std::string>& DesktopEntryIndex::watchProblem() const {
    tables();
    return watch_.problem();
}

std::optional<std::string> DesktopEntryIndex::resolvedProgram(const std::string& name) const {
    if (name.find('/') != std::string::npos) {
        return name.starts_with('/') && isExecutableFile(name) ? resolved(name) : std::nullopt;
    }
    for (const std::string& folder : searchPath_) {
        if (const std::string path = std::filesystem::path(folder) / name; isExecutableFile(path)) {
            return resolved(path);
        }
    }
    return std::nullopt;
}

const InstalledApplication* DesktopEntryIndex::only(const Positions& positions,
                                                    std::string_view key) const {
    const auto found = positions.find(key);
    return found != positions.end() && found->second.size() == 1
               ? &applications()[found->second.front()]
               : nullptr;
}

const InstalledApplication*
DesktopEntryIndex::onlyWhere(const std::function<bool(const InstalledApplication&)>& fits) const {
    const auto& all = applications();
    const auto first = std::ranges::find_if(all, fits);
    if (first == all.end() || std::find_if(first + 1, all.end(), fits) != all.end()) {
        return nullptr;
    }
    return &*first;
}

const InstalledApplication* DesktopEntryIndex::preferredOfClass(const Positions& positions,
                                                                std::string_view key,
                                                                std::string_view wmClass) const {
    const auto found = positions.find(key);
    if (found == positions.end()) {
        return nullptr;
    }
    const std::string name = folded(wmClass);
    const auto rank = [&](std::size_t position) {
        const InstalledApplication& application = applications()[position];
        return std::pair(folded(application.id) != name, application.entry.noDisplay);
    };
    return &applications()[*std::ranges::min_element(found->second, {}, rank)];
}

const InstalledApplication* DesktopEntryIndex::likeliestStarted(const Positions& positions,
                                                                std::string_view key) const {
    const auto found = positions.find(key);
    if (found == positions.end()) {
        return nullptr;
    }
    const auto rank = [this](std::size_t position) {
        const DesktopEntry& entry = applications()[position].entry;
        return std::pair(programOf(entry)->hasArguments, entry.noDisplay);
    };
    const auto best = std::ranges::min_element(found->second, {}, rank);
    const auto equals = std::ranges::count_if(
        found->second, [&](std::size_t position) { return rank(position) == rank(*best); });
    return equals == 1 ? &applications()[*best] : nullptr;
}

} // namespace dwellkey
