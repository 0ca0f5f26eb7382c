// SPDX-License-Identifier: MIT
#include "platform/linux/file_descriptor.h"
#include "platform/linux/linux_error_log.h"

#include <array>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>

namespace dwellkey {
namespace {

class LinuxErrorLogTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::array<int, 2> ends{};
        ASSERT_EQ(pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK), 0);
        reader = FileDescriptor(ends[0]);
        writer = FileDescriptor(ends[1]);
        // The log must get along with a blocking descriptor, as standard error is one.
        fcntl(writer.get(), F_SETFL, fcntl(writer.get(), F_GETFL) & ~O_NONBLOCK);
    }
    void TearDown() override { unsetenv("JOURNAL_STREAM"); }

    std::string logged() {
        std::array<char, 2UL * PIPE_BUF> buffer{};
        const auto size = read(reader.get(), buffer.data(), buffer.size());
        return {buffer.data(), size > 0 ? static_cast<std::size_t>(size) : 0};
    }

    FileDescriptor reader;
    FileDescriptor writer;
};

TEST_F(LinuxErrorLogTest, error_anyText_isOneReadableLine) {
    LinuxErrorLog log(writer.get());
    log.error("cannot save", "disk full");
    EXPECT_EQ(logged(), "dwellkey: error: cannot save (disk full)\n");
    log.error("größe \n\x1b[31m\t\xff\xc2\x9b");
    EXPECT_EQ(logged(), "dwellkey: error: größe \\n\\x1b[31m\\x09\\xff\\xc2\\x9b\n");
}

TEST_F(LinuxErrorLogTest, error_tooLongForOneWrite_isCutBetweenCharacters) {
    std::string message;
    while (message.size() < 10000) {
        message += "€";
    }
    LinuxErrorLog(writer.get()).error(message);
    const std::string line = logged();
    EXPECT_LE(line.size(), static_cast<std::size_t>(PIPE_BUF));
    EXPECT_TRUE(line.ends_with("€...\n"));
}

TEST_F(LinuxErrorLogTest, error_streamOfTheJournal_carriesThePriority) {
    struct stat status {};
    ASSERT_EQ(fstat(writer.get(), &status), 0);
    const auto name = std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
    setenv("JOURNAL_STREAM", name.c_str(), 1);
    LinuxErrorLog(writer.get()).error("cannot save");
    EXPECT_EQ(logged(), "<3>dwellkey: cannot save\n");

    // Inherited from a parent whose standard error was the journal; ours is not.
    setenv("JOURNAL_STREAM", (name + "1").c_str(), 1);
    LinuxErrorLog(writer.get()).error("cannot save");
    EXPECT_EQ(logged(), "dwellkey: error: cannot save\n");
}

TEST_F(LinuxErrorLogTest, error_nobodyReads_neitherBlocksNorEndsTheProgram) {
    LinuxErrorLog log(writer.get());
    const std::string message(PIPE_BUF, 'x');
    for (int i = 0; i < 100; ++i) { // a pipe holds 64 KiB
        log.error(message);
    }
    reader = FileDescriptor();
    log.error("to nobody");
    LinuxErrorLog(-1).error("to nothing");
}

} // namespace
} // namespace dwellkey
