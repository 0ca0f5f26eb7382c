// SPDX-License-Identifier: MIT
#include "harness/desktop.h"

#include <cstdlib>

namespace dwellkey::e2e {

namespace {

std::string inherited(const char* variable, const std::string& otherwise) {
    const char* value = std::getenv(variable); // NOLINT(concurrency-mt-unsafe)
    return value == nullptr ? otherwise : value;
}

/// Nothing of the session that the tests run in: only where programs are, and the language.
Environment privateEnvironment(const std::filesystem::path& folder) {
    Environment environment{
        {"PATH", inherited("PATH", "/usr/local/bin:/usr/bin:/bin")},
        {"LANG", "C.UTF-8"},
        {"HOME", folder / "home"},
        {"XDG_CONFIG_HOME", folder / "config"},
        {"XDG_DATA_HOME", folder / "data"},
        {"XDG_CACHE_HOME", folder / "cache"},
        {"XDG_STATE_HOME", folder / "state"},
        {"XDG_RUNTIME_DIR", folder / "runtime"},
        {"XDG_DATA_DIRS", (folder / "share").string() + ":/usr/local/share:/usr/share"},
        {"XDG_SESSION_TYPE", "x11"},
        {"XDG_CURRENT_DESKTOP", "test"},
        {"NO_AT_BRIDGE", "1"},
        {"GSETTINGS_BACKEND", "memory"},
    };
    for (const char* variable : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"}) {
        if (const auto value = inherited(variable, ""); !value.empty()) {
            environment[variable] = value;
        }
    }
    return environment;
}

} // namespace

Desktop::Desktop(WindowManagerKind windowManager, Size size)
    : environment_(privateEnvironment(folder_.path())) {
    for (const char* name :
         {"home", "config", "data", "cache", "state", "runtime", "share/applications", "logs"}) {
        std::filesystem::create_directories(folder(name));
    }
    std::filesystem::permissions(folder("runtime"), std::filesystem::perms::owner_all);
    server_ = std::make_unique<XServer>(environment_, folder("logs"), size);
    environment_["DISPLAY"] = server_->display();
    bus_ = std::make_unique<SessionBus>(environment_, folder("logs"));
    environment_["DBUS_SESSION_BUS_ADDRESS"] = bus_->address();
    environment_["DBUS_SYSTEM_BUS_ADDRESS"] = bus_->address();
    windowManager_ = std::make_unique<WindowManager>(windowManager, environment_, folder("logs"));
    screen_ = std::make_unique<Screen>(server_->display());
    keyboard_ = std::make_unique<Keyboard>(server_->display(), environment_, folder("logs"));
    pointer_ = std::make_unique<Pointer>(server_->display());
}

std::filesystem::path Desktop::folder(const std::string& name) const {
    return folder_.path() / name;
}

std::string Desktop::addDesktopEntry(const std::string& id, const std::string& name,
                                     const std::string& windowClass) const {
    const auto file = folder("share/applications") / (id + ".desktop");
    writeFile(file, "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=" + id
                        + "\nStartupWMClass=" + windowClass + "\n");
    return "file://" + file.string();
}

void Desktop::setFileManager(const std::string& entryFile) const {
    writeFile(folder("config") / "mimeapps.list",
              "[Default Applications]\ninode/directory=" + entryFile + "\n");
}

std::unique_ptr<ChildProcess> Desktop::start(const std::vector<std::string>& arguments,
                                             const Environment& additions,
                                             ChildProcess::Output output) {
    Environment environment = environment_;
    for (const auto& [name, value] : additions) {
        environment[name] = value;
    }
    const auto log =
        folder("logs") / (std::filesystem::path(arguments.at(0)).filename().string() + ".log");
    return std::make_unique<ChildProcess>(
        ChildProcess::Program{arguments, environment, log, output});
}

std::string Desktop::built(const std::string& program) {
    return DWELLKEY_BINARY_DIR "/" + program;
}

std::string Desktop::logs() const {
    std::string all;
    for (const auto& files : {folder("logs"), folder("config") / "dwellkey"}) {
        std::error_code ignored; // a test without Dwellkey has no settings
        for (const auto& entry : std::filesystem::directory_iterator(files, ignored)) {
            if (entry.is_regular_file()) {
                all += "--- " + entry.path().filename().string() + "\n" + readFile(entry.path());
            }
        }
    }
    return all;
}

} // namespace dwellkey::e2e
