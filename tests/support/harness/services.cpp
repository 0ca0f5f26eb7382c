// SPDX-License-Identifier: MIT
#include "harness/services.h"

#include "harness/failure.h"
#include "harness/screen.h"
#include "harness/temporary_folder.h"

#include <ostream>
#include <utility>

namespace dwellkey::e2e {

namespace {

/// The first line that a service writes when it is ready.
std::string awaitFirstLine(ChildProcess& process, const std::string& what) {
    std::optional<std::string> line;
    await(what,
          [&] {
              line = process.readLine();
              if (!line && !process.isRunning()) {
                  throw Failure(what + ": it ended at once:\n" + process.log());
              }
              return line.has_value();
          },
          {process.outputDescriptor()});
    return *line;
}

std::vector<std::string> serverArguments(Size size) {
    const auto screen = std::to_string(size.width) + "x" + std::to_string(size.height) + "x24";
    return {"Xvfb",       "-displayfd", "1",          "-screen", "0",  screen,
            "-nolisten",  "tcp",        "-noreset",   "-dpi",    "96", "-ac",
            "+extension", "XTEST",      "+extension", "RANDR"};
}

std::filesystem::path writeBusConfiguration(const std::filesystem::path& folder) {
    auto file = folder / "bus.conf";
    writeFile(file, "<busconfig><type>session</type><listen>unix:path=" + (folder / "bus").string()
                        + "</listen><policy context=\"default\"><allow send_destination=\"*\" "
                          "eavesdrop=\"true\"/><allow eavesdrop=\"true\"/><allow own=\"*\"/>"
                          "</policy></busconfig>\n");
    return file;
}

} // namespace

XServer::XServer(const Environment& environment, const std::filesystem::path& logFolder, Size size)
    : process_(
        {serverArguments(size), environment, logFolder / "xvfb.log", ChildProcess::Output::toPipe}),
      display_(":" + awaitFirstLine(process_, "the X server")) {}

SessionBus::SessionBus(const Environment& environment, const std::filesystem::path& folder)
    : process_({{"dbus-daemon", "--nofork", "--print-address=1",
                 "--config-file=" + writeBusConfiguration(folder).string()},
                environment,
                folder / "bus.log",
                ChildProcess::Output::toPipe}),
      address_(awaitFirstLine(process_, "the session bus")) {}

std::string nameOf(WindowManagerKind kind) {
    return kind == WindowManagerKind::openbox ? "openbox" : "xfwm4";
}

void PrintTo(WindowManagerKind kind, std::ostream* stream) {
    *stream << nameOf(kind);
}

WindowManager::WindowManager(WindowManagerKind kind, Environment environment,
                             const std::filesystem::path& logFolder)
    : kind_(kind), environment_(std::move(environment)), log_(logFolder / (nameOf(kind) + ".log")) {
    start();
}

void WindowManager::restart() {
    end();
    start();
}

void WindowManager::start() {
    // openbox announces itself before it is ready to give the focus to new windows.
    const std::filesystem::path ready = log_.string() + ".ready";
    std::filesystem::remove(ready);
    const std::vector<std::string> arguments =
        kind_ == WindowManagerKind::openbox
            ? std::vector<std::string>{"openbox", "--startup", "touch " + ready.string()}
            : std::vector<std::string>{"xfwm4", "--compositor=off"};
    process_ = std::make_unique<ChildProcess>(ChildProcess::Program{arguments, environment_, log_});
    const Screen screen(environment_.at("DISPLAY"));
    screen.await(nameOf(kind_) + " to manage the windows", [&] {
        if (!process_->isRunning()) {
            throw Failure(nameOf(kind_) + " ended at once:\n" + process_->log());
        }
        return screen.isManaged()
               && (kind_ != WindowManagerKind::openbox || std::filesystem::exists(ready));
    });
}

} // namespace dwellkey::e2e
