// SPDX-License-Identifier: MIT
#include "platform/linux/single_instance.h"

#include "poll_run_loop.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <variant>
#include <vector>

namespace dwellkey {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr SingleInstance::Patience littlePatience{milliseconds(50), milliseconds(50)};

/// Another program that has taken the lock, as a process of its own.
class ForeignHolder {
public:
    explicit ForeignHolder(const std::string& lockPath) {
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
        process_ = ::fork();
        if (process_ == 0) {
            struct flock lock {};
            lock.l_type = F_WRLCK;
            const int file = ::open(lockPath.c_str(), O_RDWR | O_CREAT, 0600); // survives exec
            const char isTaken = ::fcntl(file, F_SETLK, &lock) == 0 ? 'y' : 'n';
            if (::write(ends[1], &isTaken, 1) == 1) {
                ::execlp("sleep", "sleep", "1000", nullptr);
            }
            ::_exit(1);
        }
        ::close(ends[1]);
        char isTaken = 'n';
        EXPECT_EQ(::read(ends[0], &isTaken, 1), 1);
        EXPECT_EQ(isTaken, 'y');
        EXPECT_EQ(::read(ends[0], &isTaken, 1), 0); // closed: it is the other program now
        ::close(ends[0]);
    }
    ForeignHolder(const ForeignHolder&) = delete;
    ForeignHolder& operator=(const ForeignHolder&) = delete;
    ~ForeignHolder() {
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
    }

    [[nodiscard]] bool isRunning() const { return ::waitpid(process_, nullptr, WNOHANG) == 0; }

private:
    pid_t process_ = -1;
};

class SingleInstanceTest : public ::testing::Test {
protected:
    [[nodiscard]] SingleInstance::Claim claim() const {
        return SingleInstance::claim({folder.path(), ":7"}, {}, littlePatience);
    }

    static std::string displayOf(const std::string& display) {
        return SingleInstance::Place::from([&](std::string_view name) {
                   return name == "DISPLAY" ? std::optional(display) : std::nullopt;
               })
            .display;
    }

    testing::ScratchFolder folder;
    testing::PollRunLoop loop;
};

TEST_F(SingleInstanceTest, lockHeldByAnotherProgram_blocksAndLeavesItAlone) {
    const ForeignHolder holder(folder / "dwellkey-:7.lock");
    const auto outcome = claim();
    ASSERT_TRUE(std::holds_alternative<SingleInstance::Blocked>(outcome));
    EXPECT_NE(std::get<SingleInstance::Blocked>(outcome).cause.find("another program"),
              std::string::npos);
    EXPECT_TRUE(holder.isRunning());
}

TEST_F(SingleInstanceTest, folderThatOthersMayEnter_isNotTrusted) {
    std::filesystem::permissions(folder.path(), std::filesystem::perms::others_exec,
                                 std::filesystem::perm_options::add);
    EXPECT_TRUE(std::holds_alternative<SingleInstance::Unavailable>(claim()));
}

TEST_F(SingleInstanceTest, namesOfOneDisplay_areOnePlace) {
    EXPECT_EQ(displayOf(":0"), displayOf(":0.1"));
    EXPECT_EQ(displayOf(":0"), displayOf("unix:0"));
    EXPECT_NE(displayOf(":0"), displayOf(":1"));
    EXPECT_NE(displayOf(":10"), displayOf("host.example:10"));
    EXPECT_EQ(displayOf("/tmp/folder/x:0").find('/'), std::string::npos);
}

class LaunchSocketTest : public SingleInstanceTest {
protected:
    void SetUp() override {
        auto opened = LaunchSocket::open(path);
        ASSERT_TRUE(std::holds_alternative<std::unique_ptr<LaunchSocket>>(opened));
        socket = std::get<std::unique_ptr<LaunchSocket>>(std::move(opened));
        startedAgain = socket->startedAgain.subscribe(
            [this](const Launch& launch) { seen.push_back(launch.startupId); });
    }

    [[nodiscard]] auto tell(const std::string& startupId, milliseconds patience) const {
        return std::async(std::launch::async, [=, this] {
            return tellOfLaunch(path, {startupId}, steady_clock::now() + patience);
        });
    }

    std::string path = folder / "socket";
    std::unique_ptr<LaunchSocket> socket;
    std::vector<std::string> seen;
    Subscription startedAgain;
};

TEST_F(LaunchSocketTest, eachCaller_isAnsweredAndItsStartupIdArrives) {
    socket->attach(loop);
    auto one = tell("one id_TIME7", testing::PollRunLoop::patience);
    auto other = tell("", testing::PollRunLoop::patience);
    ASSERT_TRUE(loop.runUntil([&] { return seen.size() == 2; }));
    EXPECT_TRUE(one.get());
    EXPECT_TRUE(other.get());
    EXPECT_NE(std::ranges::find(seen, "one id_TIME7"), seen.end());
}

TEST_F(LaunchSocketTest, callerThatGaveUp_isNotHeard) {
    EXPECT_FALSE(tell("given up", milliseconds(0)).get());
    socket->attach(loop);
    auto patient = tell("patient", testing::PollRunLoop::patience);
    ASSERT_TRUE(loop.runUntil([&] { return !seen.empty(); }));
    EXPECT_EQ(seen, std::vector<std::string>{"patient"});
}

} // namespace
} // namespace dwellkey
