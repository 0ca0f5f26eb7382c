// SPDX-License-Identifier: MIT
// What the settings store does when files, disks and other processes misbehave.
#include "settings_fixture.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <random>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <sys/wait.h>

namespace dwellkey {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class SettingsRecoveryTest : public SettingsTest {
protected:
    std::vector<std::string> namesStartingWith(std::string_view prefix) const {
        return testing::namesIn(fs::path(path).parent_path(), prefix);
    }
    /// So that no editor can be at it any more.
    void writeLongAgo(std::string_view contents) const {
        write(contents);
        fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::hours(1));
    }
    std::string damagedText(std::size_t index) const {
        return testing::readFile(fs::path(path).parent_path()
                                 / namesStartingWith("settings.json.damaged-").at(index));
    }
};

/// A full disk, as far as this process can tell: no file may grow beyond `size` bytes.
class FullDisk {
public:
    explicit FullDisk(rlim_t size) {
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit full{size, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

private:
    rlimit before_{};
    void (*handler_)(int) = SIG_DFL;
};

/// Runs `work` in a process of its own.
template <typename Work>
pid_t startProcess(Work work) {
    const pid_t process = fork();
    if (process == 0) {
        work();
        _exit(0);
    }
    return process;
}

TEST_F(SettingsRecoveryTest, open_damagedFile_isSetAsideWholeAndTheStoreStartsEmpty) {
    const std::vector<std::string> damaged = {
        "",
        R"({"a": 1, "b": "trunc)",
        "\x7f"s
        "ELF\0\0\0\0\xff"s,
        std::string(4096, '\0'),
        "[1, 2]",
        "7",
        R"({"a": 1, "a": 2})",
        R"({"a": 1} x)",
        R"({"a": "caf)"s + "\xE9\"}",
        R"({"a": )" + std::string(100'000, '['),
        R"({"a": )" + std::string(64, '[') + std::string(64, ']') + "}",
        std::string(SettingsFile::largestSize + 1, ' '),
    };
    for (std::size_t i = 0; i < damaged.size(); ++i) {
        writeLongAgo(damaged[i]);
        open();
        EXPECT_EQ(opened->find("a"), nullptr);
        EXPECT_FALSE(fs::exists(path));
        ASSERT_THAT(log.entries, SizeIs(i + 1));
        EXPECT_NE(log.entries.back().cause, "");
    }
    std::multiset<std::string> kept;
    for (std::size_t i = 0; i < damaged.size(); ++i) {
        kept.insert(damagedText(i));
        EXPECT_THAT(log.entries[i].message, HasSubstr("settings.json.damaged-"));
    }
    EXPECT_EQ(kept, std::multiset<std::string>(damaged.begin(), damaged.end()));
}

TEST_F(SettingsRecoveryTest, edit_leavesTheFileDamaged_valuesStayAndAMendedFileCounts) {
    write(R"({"a":1})");
    open();
    write(R"({"a":2,)");
    EXPECT_TRUE(loop.runUntil([&] { return !log.entries.empty(); }));
    EXPECT_EQ(number("a"), 1);
    EXPECT_EQ(text(), R"({"a":2,)") << "the editor's file must not move away under it";
    write(R"({"a":2})");
    EXPECT_TRUE(comesToHold("a", 2));
    EXPECT_THAT(log.entries, SizeIs(1));
}

/// Waits for the next reader of an emptied file before it writes the rest, like an editor whose
/// save the reader met in the middle.
pid_t startSlowEditor(const std::string& path, const std::string& contents) {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    const FileDescriptor reader(ends[0]);
    FileDescriptor writer(ends[1]);
    testing::writeFile(path, "");
    const pid_t editor = startProcess([&] {
        const FileDescriptor inotify(inotify_init1(IN_CLOEXEC));
        inotify_add_watch(inotify.get(), path.c_str(), IN_CLOSE_NOWRITE);
        static_cast<void>(!::write(writer.get(), "r", 1));
        std::array<char, 512> event{};
        static_cast<void>(!::read(inotify.get(), event.data(), event.size()));
        testing::writeFile(path, contents);
    });
    writer.close();
    char isReady = 0;
    EXPECT_EQ(::read(reader.get(), &isReady, 1), 1);
    return editor;
}

TEST_F(SettingsRecoveryTest, editorThatHasOnlyEmptiedTheFile_getsAMomentForTheRest) {
    const pid_t editor = startSlowEditor(path, R"({"a":1})");
    auto& store = open();
    waitpid(editor, nullptr, 0);
    EXPECT_EQ(number("a"), 1);

    write(""); // once more, and now it meets our save
    store.set("b", std::int64_t{2});
    loop.runPosted();
    write(R"({"a":3})");
    EXPECT_TRUE(loop.runUntil([&] { return text().find("\"b\"") != std::string::npos; }));
    EXPECT_EQ(text(), "{\n    \"a\": 3,\n    \"b\": 2\n}\n");

    const pid_t another = startSlowEditor(path, R"({"a":4})");
    store.set("b", std::int64_t{5});
    store.synchronize(); // the program ends
    waitpid(another, nullptr, 0);
    EXPECT_EQ(text(), "{\n    \"a\": 4,\n    \"b\": 5\n}\n");
    EXPECT_THAT(namesStartingWith("settings.json.damaged-"), IsEmpty());
}

TEST_F(SettingsRecoveryTest, save_findsADamagedFile_setsItAsideAndSavesAllValues) {
    write(R"({"a":1})");
    auto& store = open();
    writeLongAgo("damaged");
    store.set("b", std::int64_t{2});
    store.synchronize();
    EXPECT_EQ(damagedText(0), "damaged");
    EXPECT_EQ(text(), "{\n    \"a\": 1,\n    \"b\": 2\n}\n");
}

TEST_F(SettingsRecoveryTest, unreadableFile_isLeftAloneAndTheValuesLiveInMemory) {
    fs::create_directories(path); // unreadable for root, too
    auto& store = open();
    EXPECT_THAT(log.entries, SizeIs(1));
    store.set("a", std::int64_t{1});
    store.synchronize();
    store.synchronize();
    EXPECT_THAT(log.entries, SizeIs(2)) << "cannot read, cannot save: each once";
    EXPECT_TRUE(fs::is_directory(path));
    EXPECT_EQ(number("a"), 1);
    fs::remove(path);
    store.synchronize();
    EXPECT_THAT(text(), HasSubstr("\"a\": 1"));
}

TEST_F(SettingsRecoveryTest, save_diskFull_keepsTheOldFileAndTriesAgain) {
    write(R"({"a":1})");
    auto& store = open();
    {
        const FullDisk full(8);
        store.set("a", std::int64_t{2});
        loop.runPosted();
        store.set("b", std::int64_t{2});
        loop.runPosted();
    }
    ASSERT_THAT(log.entries, SizeIs(1)) << "once, not at every try";
    EXPECT_THAT(log.entries[0].message, HasSubstr(path));
    EXPECT_EQ(text(), R"({"a":1})");
    EXPECT_EQ(number("a"), 2);
    EXPECT_THAT(namesStartingWith(".settings.json"), IsEmpty());

    store.set("c", std::int64_t{2});
    loop.runPosted();
    EXPECT_EQ(text(), "{\n    \"a\": 2,\n    \"b\": 2,\n    \"c\": 2\n}\n");
    const FullDisk full(8);
    store.set("c", std::int64_t{3});
    store.synchronize();
    EXPECT_THAT(log.entries, SizeIs(2)) << "it had worked in between";
}

TEST_F(SettingsRecoveryTest, save_folderCannotBeMade_savesOnceItCan) {
    testing::writeFile(folder / "config", "a file where the folder should be");
    auto& store = open();
    store.set("a", std::int64_t{1});
    store.synchronize();
    EXPECT_THAT(log.entries, SizeIs(1));
    fs::remove(folder / "config");
    fs::create_directories(fs::path(path).parent_path());
    EXPECT_TRUE(loop.runUntil([&] { return fs::exists(path); })) << "without another set";
}

TEST_F(SettingsRecoveryTest, save_lockIsKeptByAHangingProcess_savesWithoutItInTheEnd) {
    auto& store = open();
    store.set("a", std::int64_t{1});
    store.synchronize();
    auto lock = std::optional(FileLock::tryTake(path + ".lock"));
    ASSERT_EQ(lock->state(), FileLock::State::taken);

    store.set("a", std::int64_t{2});
    loop.runPosted();
    EXPECT_THAT(text(), HasSubstr("\"a\": 1")) << "it waits for the lock";
    lock.reset();
    EXPECT_TRUE(loop.runUntil([&] { return text().find("\"a\": 2") != std::string::npos; }));
    EXPECT_THAT(log.entries, IsEmpty());

    lock.emplace(FileLock::tryTake(path + ".lock"));
    store.set("a", std::int64_t{3});
    EXPECT_TRUE(loop.runUntil([&] { return text().find("\"a\": 3") != std::string::npos; }));
    store.set("a", std::int64_t{4});
    store.synchronize();
    EXPECT_THAT(text(), HasSubstr("\"a\": 4"));
    EXPECT_THAT(log.entries, SizeIs(2));
}

TEST_F(SettingsRecoveryTest, twoProcesses_settingDifferentKeys_loseNothing) {
    constexpr std::int64_t changes = 25;
    const auto setAll = [this](const std::string& prefix) {
        auto& store = open();
        for (std::int64_t i = 0; i < changes; ++i) {
            store.set(prefix + std::to_string(i), i);
            store.set(prefix, i);
            store.synchronize();
        }
    };
    const pid_t other = startProcess([&] { setAll("theirs"); });
    setAll("ours");
    int status = 0;
    ASSERT_EQ(waitpid(other, &status, 0), other);
    ASSERT_EQ(status, 0);
    open();
    for (std::int64_t i = 0; i < changes; ++i) {
        EXPECT_EQ(number("ours" + std::to_string(i)), i);
        EXPECT_EQ(number("theirs" + std::to_string(i)), i);
    }
    EXPECT_THAT(log.entries, IsEmpty());
}

TEST_F(SettingsRecoveryTest, process_killedWhileSaving_leavesAWholeSavedState) {
    std::minstd_rand random(1); // NOLINT(cert-msc51-cpp): the same moments each time
    for (int round = 0; round < 30; ++round) {
        std::array<int, 2> ends{};
        ASSERT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
        const FileDescriptor reader(ends[0]);
        FileDescriptor writer(ends[1]);
        const pid_t process = startProcess([&] {
            auto& store = open();
            for (std::int64_t i = number("first").value_or(0) + 1;; ++i) {
                store.set("first", i);
                store.set("payload", std::string(20'000, 'x'));
                store.set("last", i);
                store.synchronize();
                static_cast<void>(!::write(writer.get(), &i, sizeof i));
            }
        });
        writer.close();
        std::int64_t saved = 0;
        ASSERT_EQ(::read(reader.get(), &saved, sizeof saved), sizeof saved);
        const timespec moment{0, static_cast<long>(random() % 5'000'000)};
        nanosleep(&moment, nullptr); // into the middle of a later save, wherever that is
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
        while (::read(reader.get(), &saved, sizeof saved) > 0) {
        }
        open();
        ASSERT_GE(number("first"), saved);
        ASSERT_EQ(number("first"), number("last"));
    }
    opened->set("payload", ""s);
    opened->synchronize();
    EXPECT_THAT(namesStartingWith(".settings.json"), IsEmpty()) << "nothing half-written is left";
    EXPECT_THAT(log.entries, IsEmpty());
}

} // namespace
} // namespace dwellkey
