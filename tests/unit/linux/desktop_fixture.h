// SPDX-License-Identifier: MIT
// A scratch desktop: applications folders that a test fills, and an index of them.
#pragma once

#include "platform/linux/desktop_entry_index.h"
#include "poll_run_loop.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

namespace dwellkey::testing {

class DesktopFixture : public ::testing::Test {
protected:
    void install(const std::string& file, const std::string& lines) {
        writeFile(scratch_ / file,
                  "[Desktop Entry]\nType=Application\nName=" + file + "\n" + lines);
    }
    void installProgram(const std::string& file) {
        writeFile(scratch_ / file, "#!/bin/sh\n");
        ASSERT_EQ(chmod((scratch_ / file).c_str(), 0755), 0);
    }

    ScratchFolder scratch_;
    PollRunLoop loop_;
    DesktopEntryIndex index_{loop_,
                             {scratch_ / "home/applications", scratch_ / "usr/applications"},
                             {},
                             {scratch_ / "bin"}};
};

} // namespace dwellkey::testing
