// SPDX-License-Identifier: MIT
#include "platform/linux/default_file_manager.h"

#include "desktop_fixture.h"
#include "platform/linux/linux_bundle_reader.h"

#include <gmock/gmock.h>

namespace dwellkey {
namespace {

using testing::writeFile;

class DefaultFileManagerTest : public testing::DesktopFixture {
protected:
    void installHandler(const std::string& id, const std::string& categories) {
        install("usr/applications/" + id + ".desktop",
                "MimeType=text/plain;inode/directory;\nCategories=" + categories + "\n");
    }
    void writeList(const std::string& file, const std::string& group, const std::string& ids) {
        writeFile(scratch_ / file, "[" + group + "]\ninode/directory=" + ids + "\n");
    }
    /// After what changed has been noticed.
    std::string current() {
        loop_.runPosted();
        return manager_.identifier().value_or("none");
    }

    DefaultFileManager manager_{loop_, index_, folders(), {"Ubuntu", "GNOME"}};

private:
    [[nodiscard]] BaseFolders folders() const {
        BaseFolders result;
        result.configHome = scratch_ / "config";
        result.configDirs = {scratch_ / "etc"};
        result.dataHome = scratch_ / "home";
        result.dataDirs = {scratch_ / "usr"};
        return result;
    }
};

TEST_F(DefaultFileManagerTest, editor_that_opens_folders_is_none_even_by_choice) {
    installHandler("code", "Development;");
    EXPECT_EQ(current(), "none");
    writeList("config/mimeapps.list", "Default Applications", "code.desktop;");
    EXPECT_EQ(current(), "none");
    installHandler("files", "System;FileManager;");
    EXPECT_EQ(current(), "files");
    writeList("config/mimeapps.list", "Removed Associations", "files.desktop;");
    EXPECT_EQ(current(), "none");
}

TEST_F(DefaultFileManagerTest, hidden_entry_of_a_file_manager_counts) {
    install("usr/applications/files.desktop", "Exec=files %U\nCategories=FileManager;\n");
    install("usr/applications/open-folder.desktop", "Exec=files\nNoDisplay=true\n");
    writeList("etc/mimeapps.list", "Default Applications", "open-folder.desktop;");
    EXPECT_EQ(current(), "open-folder");
}

TEST_F(DefaultFileManagerTest, choices_count_by_the_weight_of_their_list) {
    installHandler("files", "FileManager;");
    for (const char* id : {"a", "b", "c"}) {
        installHandler(id, "FileManager;");
    }
    writeList("usr/applications/mimeapps.list", "Added Associations", "a.desktop;");
    EXPECT_EQ(current(), "a");
    writeList("usr/applications/gnome-mimeapps.list", "Default Applications", "b.desktop;");
    EXPECT_EQ(current(), "b");
    writeList("etc/mimeapps.list", "Default Applications", "missing.desktop;c.desktop;");
    EXPECT_EQ(current(), "c");
    writeList("etc/gnome-mimeapps.list", "Default Applications", "a.desktop;");
    EXPECT_EQ(current(), "a");
    writeList("etc/ubuntu-mimeapps.list", "Default Applications", "b.desktop");
    EXPECT_EQ(current(), "b");
    writeFile(scratch_ / "config/mimeapps.list",
              "torn line\n[Default Applications]\ninode/directory=files.desktop;\n"
              "[Removed Associations]\ninode/directory=b.desktop;\n");
    EXPECT_EQ(current(), "files");
    std::filesystem::remove(scratch_ / "usr/applications/files.desktop");
    EXPECT_EQ(current(), "a") << "b was removed, files is not installed any more";
}

class LinuxBundleReaderTest : public testing::DesktopFixture {
protected:
    LinuxBundleReader reader_{index_, ResourceFiles({})};
};

TEST_F(LinuxBundleReaderTest, desktop_entry_anywhere_is_a_bundle) {
    install("usr/applications/kde/foo.desktop", "Icon=foo.png");
    install("Desktop/bar.desktop", "Icon=/opt/bar.png");
    const std::string foo = scratch_ / "usr/applications/kde/foo.desktop";
    const std::string bar = scratch_ / "Desktop/bar.desktop";
    EXPECT_EQ(reader_.bundleIdentifier(Url::fromPath(foo)), "kde-foo");
    EXPECT_EQ(reader_.localizedName(Url::fromPath(foo)), "usr/applications/kde/foo.desktop");
    EXPECT_EQ(reader_.icon(foo), Image{"foo"});
    EXPECT_EQ(reader_.bundleIdentifier(Url::fromPath(bar)), "bar");
    EXPECT_EQ(reader_.icon(bar), Image{"/opt/bar.png"});
}

TEST_F(LinuxBundleReaderTest, anything_else_is_none) {
    install("no/entry.txt", "Icon=x");
    writeFile(scratch_ / "torn.desktop", "[Desktop");
    writeFile(scratch_ / "link.desktop", "[Desktop Entry]\nType=Link\nName=x\nIcon=x\n");
    writeFile(scratch_ / "hidden.desktop", "[Desktop Entry]\nHidden=true\n");
    for (const char* name : {"no/entry.txt", "torn.desktop", "link.desktop", "hidden.desktop",
                             "missing.desktop", "no"}) {
        const std::string path = scratch_ / name;
        EXPECT_EQ(reader_.bundleIdentifier(Url::fromPath(path)), std::nullopt) << name;
        EXPECT_EQ(reader_.localizedName(Url::fromPath(path)), std::nullopt) << name;
        EXPECT_EQ(reader_.icon(path), Image{"application-x-executable"}) << name;
    }
    EXPECT_EQ(reader_.bundleIdentifier(*Url::parse("https://host/x.desktop")), std::nullopt);
}

} // namespace
} // namespace dwellkey
