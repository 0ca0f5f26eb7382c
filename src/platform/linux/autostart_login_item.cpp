// SPDX-License-Identifier: MIT
#include "platform/linux/autostart_login_item.h"

#include "platform/linux/atomic_file.h"
#include "platform/linux/folder_watch.h"
#include "platform/linux/key_file.h"
#include "platform/linux/text_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <memory>
#include <string_view>
#include <unistd.h>
#include <utility>
#include <variant>

namespace dwellkey {
namespace {

constexpr std::string_view entryName = "org.dwellkey.Dwellkey.desktop";
constexpr std::string_view mainGroup = "Desktop Entry";
constexpr std::size_t largestEntry = 1024UL * 1024; // bytes

std::optional<std::string> contentOf(const std::string& path) {
    auto content = readTextFile(path, largestEntry);
    auto* text = std::get_if<std::string>(&content);
    return text == nullptr ? std::nullopt : std::optional(std::move(*text));
}

/// Calls `use` with each pair of the group that counts.
template <typename Use>
void forEachPair(std::string_view entry, Use use) {
    KeyFileReader reader(entry);
    while (const auto line = reader.next()) {
        if (line->kind == KeyFileLine::Kind::pair && line->group == mainGroup) {
            use(*line);
        }
    }
}

bool isTrue(std::string_view value) {
    return value == "true" || value == "1";
}

bool haveCommon(const std::vector<std::string>& some, const std::vector<std::string>& others) {
    return std::ranges::find_first_of(some, others) != some.end();
}

/// What the entry says about being started.
struct StartRules {
    bool hasCommand = false;
    bool isHidden = false;
    bool isSwitchedOn = true;
    std::optional<std::vector<std::string>> onlyShowIn;
    std::vector<std::string> notShowIn;

    explicit StartRules(std::string_view entry) {
        forEachPair(entry, [this](const KeyFileLine& line) {
            if (line.key == "Exec") {
                hasCommand = !line.value.empty();
            } else if (line.key == "Hidden") {
                isHidden = isTrue(line.value);
            } else if (line.key == "X-GNOME-Autostart-enabled") {
                isSwitchedOn = isTrue(line.value);
            } else if (line.key == "OnlyShowIn") {
                onlyShowIn = listValue(line.value);
            } else if (line.key == "NotShowIn") {
                notShowIn = listValue(line.value);
            }
        });
    }

    [[nodiscard]] bool isStartedIn(const std::vector<std::string>& desktops) const {
        return !isHidden && isSwitchedOn && (!onlyShowIn || haveCommon(*onlyShowIn, desktops))
               && !haveCommon(notShowIn, desktops);
    }
};

/// At login there is no file to open, so the places for one ("%U") go.
std::string withoutFieldCodes(std::string_view command) {
    std::string result;
    for (std::size_t i = 0; i < command.size(); ++i) {
        if (command[i] != '%') {
            result += command[i];
        } else if (++i < command.size() && command[i] == '%') {
            result += "%%";
        }
    }
    while (result.ends_with(' ')) {
        result.pop_back();
    }
    return result;
}

/// The entry without what is for menus and launchers. D-Bus activation is for these, too: it asks
/// a program that already runs to open its window.
std::string autostartEntry(std::string_view installed) {
    constexpr std::array<std::string_view, 9> left = {
        "Actions",    "DBusActivatable", "Hidden",
        "Implements", "MimeType",        "NoDisplay",
        "NotShowIn",  "OnlyShowIn",      "X-GNOME-Autostart-enabled"};
    std::string entry = "[" + std::string(mainGroup) + "]\n";
    forEachPair(installed, [&](const KeyFileLine& line) {
        if (std::ranges::find(left, line.key) != left.end()) {
            return;
        }
        entry += line.key;
        if (!line.locale.empty()) {
            entry.append("[").append(line.locale).append("]");
        }
        entry += '=';
        entry += line.key == "Exec" ? withoutFieldCodes(line.value) : std::string(line.value);
        entry += '\n';
    });
    return entry + "X-GNOME-Autostart-enabled=true\n";
}

} // namespace

AutostartPlaces AutostartPlaces::from(const Environment& environment) {
    const BaseFolders folders = BaseFolders::from(environment);
    return {folders.configHome.value_or("/dev/null") + "/autostart", folders.applicationFolders(),
            splitList(environment("XDG_CURRENT_DESKTOP").value_or(""), ':')};
}

std::optional<LoginItem::Error> AutostartLoginItem::registerItem() {
    const auto installed = installedEntry();
    if (!installed) {
        return Error{withArgument(localizer_.localized("AutostartLoginItem",
                                                       "Dwellkey is not installed: there is no %1 "
                                                       "in the applications folders."),
                                  entryName)};
    }
    switch (status()) {
    case LoginItemStatus::enabled:
        return std::nullopt;
    case LoginItemStatus::requiresApproval:
        return Error{
            withArgument(localizer_.localized("AutostartLoginItem",
                                              "It is switched off in the desktop's own settings. "
                                              "Switch it on there, or remove the file \"%1\"."),
                         entryPath())};
    default:
        return writeEntry(*installed);
    }
}

std::optional<LoginItem::Error> AutostartLoginItem::writeEntry(const std::string& installed) const {
    auto error = makeFolders(places_.autostartFolder);
    if (!error) {
        error = replaceFile(entryPath(), autostartEntry(installed));
    }
    if (error) {
        return Error{withArgument(localizer_.localized("AutostartLoginItem",
                                                       "The file \"%1\" cannot be written: "),
                                  entryPath())
                     + error->cause + "."};
    }
    return std::nullopt;
}

std::optional<LoginItem::Error> AutostartLoginItem::unregisterItem() {
    if (unlink(entryPath().c_str()) == 0 || errno == ENOENT || errno == ENOTDIR) {
        return std::nullopt;
    }
    const std::string cause = lastFileError().cause;
    return Error{withArgument(localizer_.localized("AutostartLoginItem",
                                                   "The file \"%1\" cannot be removed: "),
                              entryPath())
                 + cause + "."};
}

LoginItemStatus AutostartLoginItem::status() const {
    if (!installedEntry()) {
        return LoginItemStatus::notFound;
    }
    const auto entry = contentOf(entryPath());
    if (!entry) {
        return LoginItemStatus::notRegistered;
    }
    const StartRules rules(*entry);
    if (!rules.isStartedIn(places_.currentDesktops)) {
        return LoginItemStatus::requiresApproval;
    }
    return rules.hasCommand ? LoginItemStatus::enabled : LoginItemStatus::notRegistered;
}

Subscription AutostartLoginItem::observe(std::function<void()> changed) {
    class Observation {
    public:
        Observation(std::string folder, RunLoop& runLoop, std::function<void()> told)
            : folder_(std::move(folder)), changed_(std::move(told)), watch_(runLoop, [this] {
                  arm();
                  changed_();
              }) {
            arm();
        }

    private:
        void arm() {
            watch_.arm();
            watch_.add(folder_, [](std::string_view name, bool) { return name == entryName; });
        }

        std::string folder_;
        std::function<void()> changed_;
        FolderWatch watch_;
    };
    return Subscription([observation = std::make_shared<Observation>(
                             places_.autostartFolder, runLoop_, std::move(changed))]() mutable {
        observation.reset();
    });
}

std::string AutostartLoginItem::entryPath() const {
    return places_.autostartFolder + "/" + std::string(entryName);
}

std::optional<std::string> AutostartLoginItem::installedEntry() const {
    for (const std::string& folder : places_.applicationFolders) {
        if (auto entry = contentOf(folder + "/" + std::string(entryName))) {
            const StartRules rules(*entry);
            // A hidden one says that the user deleted those behind it.
            return rules.hasCommand && !rules.isHidden ? entry : std::nullopt;
        }
    }
    return std::nullopt;
}

} // namespace dwellkey
