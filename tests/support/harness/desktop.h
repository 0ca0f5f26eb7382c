// SPDX-License-Identifier: MIT
// One user's desktop, shared with nobody: everything a test needs around the program under test.
#pragma once

#include "harness/child_process.h"
#include "harness/input.h"
#include "harness/screen.h"
#include "harness/services.h"
#include "harness/temporary_folder.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace dwellkey::e2e {

class Desktop {
public:
    explicit Desktop(WindowManagerKind windowManager = WindowManagerKind::openbox,
                     Size size = {1280, 800});

    [[nodiscard]] const Screen& screen() const { return *screen_; }
    Keyboard& keyboard() { return *keyboard_; }
    Pointer& pointer() { return *pointer_; }
    XServer& server() { return *server_; }
    WindowManager& windowManager() { return *windowManager_; }

    /// What a program that the user starts finds in its environment.
    [[nodiscard]] const Environment& environment() const { return environment_; }
    [[nodiscard]] std::filesystem::path folder(const std::string& name) const;

    /// Installs the entry as "<id>.desktop" and returns its location as a file: URL.
    std::string addDesktopEntry(const std::string& id, const std::string& name,
                                const std::string& windowClass) const;

    /// Makes the application of the desktop entry the one that opens folders.
    void setFileManager(const std::string& entryFile) const;

    /// Starts a program of the machine ("mousepad") or of the build (an absolute path).
    std::unique_ptr<ChildProcess> start(const std::vector<std::string>& arguments,
                                        const Environment& additions = {},
                                        ChildProcess::Output output = ChildProcess::Output::toLog);

    /// The path of a program that the build made.
    [[nodiscard]] static std::string built(const std::string& program);

    /// Every log of the desktop's programs and Dwellkey's settings, for the report of a failed
    /// test.
    [[nodiscard]] std::string logs() const;

private:
    TemporaryFolder folder_;
    Environment environment_;
    std::unique_ptr<XServer> server_;
    std::unique_ptr<SessionBus> bus_;
    std::unique_ptr<WindowManager> windowManager_;
    std::unique_ptr<Screen> screen_;
    std::unique_ptr<Keyboard> keyboard_;
    std::unique_ptr<Pointer> pointer_;
};

} // namespace dwellkey::e2e
