// SPDX-License-Identifier: MIT
#include "desktop/sxhkd.h"

#include "desktop/measures.h"
#include "harness/failure.h"

#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace dwellkey::bench {

namespace {

constexpr xcb_keycode_t y = 29;

e2e::Descriptor makePipe(const std::filesystem::path& path) {
    if (::mkfifo(path.c_str(), 0600) != 0) {
        e2e::failFromErrno("cannot make the pipe " + path.string());
    }
    return e2e::Descriptor(::open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
}

} // namespace

Sxhkd::Sxhkd(e2e::Desktop& desktop)
    : desktop_(desktop), commands_(makePipe(desktop.folder("sxhkd.pipe"))) {
    const auto settings = desktop.folder("sxhkdrc");
    e2e::writeFile(settings,
                   "ctrl + shift + y\n\techo > " + desktop.folder("sxhkd.pipe").string() + "\n");
    const auto before = e2e::Clock::now();
    process_ = desktop.start({"sxhkd", "-c", settings}, {{"SHELL", "/bin/sh"}});
    awaitGrab(desktop.screen(), *process_, y, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_SHIFT);
    startTime_ = milliseconds(e2e::Clock::now() - before);
}

double Sxhkd::pressToCommand() {
    auto& keyboard = desktop_.keyboard();
    keyboard.press(e2e::key::leftControl);
    keyboard.press(e2e::key::leftShift);
    const auto pressed = keyboard.press(y);
    char byte = 0;
    e2e::await("the command of sxhkd", [&] { return ::read(commands_.number(), &byte, 1) == 1; },
               {commands_.number()});
    const double taken = milliseconds(e2e::Clock::now() - pressed);
    keyboard.releaseAll();
    return taken;
}

} // namespace dwellkey::bench
