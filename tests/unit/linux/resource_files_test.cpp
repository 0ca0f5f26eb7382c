// SPDX-License-Identifier: MIT
#include "platform/linux/resource_files.h"
#include "platform/linux/text_encoding.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

namespace dwellkey {
namespace {

using namespace std::string_literals;

class ResourceFilesTest : public ::testing::Test {
protected:
    std::optional<std::string> textOf(const std::string& bytes) {
        testing::writeFile(folder / "first/Text.txt", bytes);
        return files.resourceText("Text", "txt");
    }

    testing::ScratchFolder folder;
    ResourceFiles files{{folder / "first", folder / "second"}};
};

TEST_F(ResourceFilesTest, resourceText_unicodeEncodings_giveTheSameUtf8Text) {
    const std::string text = "ä€𝄞\n";
    EXPECT_EQ(textOf(text), text);
    EXPECT_EQ(textOf("\xEF\xBB\xBF" + text), text);
    EXPECT_EQ(textOf("\xFF\xFE\xE4\0\xAC\x20\x34\xD8\x1E\xDD\n\0"s), text);
    EXPECT_EQ(textOf("\xFE\xFF\0\xE4\x20\xAC\xD8\x34\xDD\x1E\0\n"s), text);
}

TEST_F(ResourceFilesTest, resourceText_bytesThatAreNoText_areRefused) {
    for (const std::string& bytes :
         {"caf\xE9"s, "\xC0\xAF"s, "\xE0\x80\xAF"s, "\xED\xA0\x80"s, "\xF4\x90\x80\x80"s,
          "\xE2\x82"s, "\xFF\xFE\xE4"s, "\xFF\xFE\x34\xD8"s, "\xFF\xFE\x1E\xDD\n\0"s}) {
        EXPECT_EQ(textOf(bytes), std::nullopt) << encodeBase64(bytes);
    }
    EXPECT_EQ(textOf(std::string(1024UL * 1024 + 1, 'a')), std::nullopt);
}

TEST_F(ResourceFilesTest, resourceText_severalFolders_firstReadableOneWins) {
    EXPECT_EQ(files.resourceText("Text", "txt"), std::nullopt);
    testing::writeFile(folder / "second/Text.txt", "second");
    EXPECT_EQ(files.resourceText("Text", "txt"), "second");
    std::filesystem::create_directories(folder / "first/Text.txt");
    EXPECT_EQ(files.resourceText("Text", "txt"), "second");
    std::filesystem::remove(folder / "first/Text.txt");
    EXPECT_EQ(textOf("first"), "first");
}

} // namespace
} // namespace dwellkey
