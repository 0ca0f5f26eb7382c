// SPDX-License-Identifier: MIT
// The program as it is installed: nothing of the build or source folder is within its reach.
#include "harness/desktop.h"
#include "harness/dwellkey_program.h"
#include "harness/failure.h"
#include "harness/probe.h"
#include "platform/fake/fake_localizer.h"
#include "platform/linux/autostart_login_item.h"
#include "poll_run_loop.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dwellkey::e2e {
namespace {

const std::string busName = "org.dwellkey.Dwellkey";

class InstalledProgram : public ::testing::Test {
protected:
    InstalledProgram() {
        run({DWELLKEY_CMAKE, "--install", DWELLKEY_BUILD, "--prefix", prefix});
        writeFile(desktop.folder("config") / "dwellkey/settings.json",
                  Settings{.guardsCloseWindow = true}.json());
    }
    void TearDown() override {
        if (HasFailure()) {
            std::cerr << desktop.logs();
        }
    }

    void run(const std::vector<std::string>& command, const Environment& additions = {}) {
        const auto process = desktop.start(command, additions);
        if (process->awaitEnd() != ExitStatus{0, {}}) {
            throw Failure(command.front() + " failed:\n" + process->log());
        }
    }

    void awaitKeysTaken() const {
        screen.await("Ctrl+Q to be taken",
                     [&] { return screen.isGrabbed(key::q, XCB_MOD_MASK_CONTROL); });
    }

    [[nodiscard]] bool arePreferencesOpen() const {
        return screen.windowTitled("Preferences").has_value();
    }

    // Programs that others start for us end with the desktop's display.
    Desktop desktop;
    const Screen& screen = desktop.screen();
    const std::filesystem::path prefix = desktop.folder("installed");
    const Environment installed{
        {"XDG_DATA_DIRS", (prefix / "share").string() + ":/usr/local/share:/usr/share"}};
};

/// A session bus that starts the services of the installation, in the session's environment.
class ActivatingBus {
public:
    ActivatingBus(Desktop& desktop, const std::filesystem::path& prefix,
                  const Environment& session) {
        const auto folder = desktop.folder("activation");
        const auto configuration = folder / "bus.conf";
        writeFile(configuration,
                  "<busconfig><type>session</type><listen>unix:path=" + (folder / "bus").string()
                      + "</listen><servicedir>" + (prefix / "share/dbus-1/services").string()
                      + "</servicedir><policy context=\"default\"><allow send_destination=\"*\" "
                        "eavesdrop=\"true\"/><allow eavesdrop=\"true\"/><allow own=\"*\"/>"
                        "</policy></busconfig>\n");
        Environment environment = session;
        environment["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=" + (folder / "bus").string();
        process_ = desktop.start({"dbus-daemon", "--nofork", "--print-address=1",
                                  "--config-file=" + configuration.string()},
                                 environment, ChildProcess::Output::toPipe);
        await("the activating bus", [&] { return process_->readLine().has_value(); },
              {process_->outputDescriptor()});
        address_ = environment["DBUS_SESSION_BUS_ADDRESS"];
    }

    [[nodiscard]] const std::string& address() const { return address_; }
    [[nodiscard]] std::string log() const { return process_->log(); }

private:
    std::unique_ptr<ChildProcess> process_;
    std::string address_;
};

TEST_F(InstalledProgram, started_findsItsResources) {
    Probe probe(desktop);
    const auto program = desktop.start({prefix / "bin/dwellkey"}, installed);
    awaitKeysTaken();
    desktop.keyboard().press(key::leftControl);
    desktop.keyboard().press(key::w); // acts through the script among the resources
    probe.awaitCount("close-request", 1);
    desktop.keyboard().releaseAll();
    EXPECT_TRUE(program->isRunning());
}

TEST_F(InstalledProgram, startedByTheBus_opensNothingUntilItIsActivatedAgain) {
    const Probe probe(desktop);
    const ActivatingBus bus(desktop, prefix, installed);
    const Environment session{{"DBUS_SESSION_BUS_ADDRESS", bus.address()}};
    const std::vector<std::string> activate{"gapplication", "launch", busName};
    run(activate, session);
    awaitKeysTaken();
    screen.await("the bus to see its service", [&] {
        return bus.log().find("Successfully activated service") != std::string::npos;
    });
    EXPECT_FALSE(arePreferencesOpen());
    run(activate, session);
    screen.await("the preferences", [&] { return arePreferencesOpen(); });
}

TEST_F(InstalledProgram, loginItem_registersAnEntryThatStartsTheProgram) {
    Environment session = installed;
    session.insert(desktop.environment().begin(), desktop.environment().end());
    const auto variable = [&](std::string_view name) -> std::optional<std::string> {
        const auto found = session.find(std::string(name));
        return found == session.end() ? std::nullopt : std::optional(found->second);
    };
    dwellkey::testing::PollRunLoop loop;
    const FakeLocalizer localizer;
    AutostartLoginItem item(AutostartPlaces::from(variable), loop, localizer);
    EXPECT_EQ(item.status(), LoginItemStatus::notRegistered);
    EXPECT_FALSE(item.registerItem());
    EXPECT_EQ(item.status(), LoginItemStatus::enabled);

    const Probe probe(desktop);
    const auto entry = desktop.folder("config") / "autostart" / (busName + ".desktop");
    run({"desktop-file-validate", entry});
    run({"gio", "launch", entry});
    awaitKeysTaken();

    EXPECT_FALSE(item.unregisterItem());
    EXPECT_EQ(item.status(), LoginItemStatus::notRegistered);
}

} // namespace
} // namespace dwellkey::e2e
