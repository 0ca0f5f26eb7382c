// SPDX-License-Identifier: MIT
#include "support/url.h"

#include <gtest/gtest.h>

#include <string>

namespace dwellkey {
namespace {

TEST(Url, parse_keepsTheTextAsItWasGiven) {
    for (const char* text : {"file:///usr/share/applications/firefox.desktop", "HTTPS://Host/A%2fb",
                             "x-apple.systempreferences:com.apple.preference.security?Privacy"}) {
        const auto url = Url::parse(text);
        ASSERT_TRUE(url) << text;
        EXPECT_EQ(url->absoluteString(), text);
    }
}

TEST(Url, parse_ofWhatIsNoAbsoluteUrl_givesNone) {
    for (const char* text :
         {"", ":", "/usr/bin", "firefox.desktop", "1file:///a", "file :///a", "file:///a b",
          "file:///a\n", "file:///100%", "file:///%2", "file:///%zz"}) {
        EXPECT_FALSE(Url::parse(text)) << text;
    }
}

TEST(Url, fromPath_andBack_keepsEveryByte) {
    std::string path = "/";
    for (int byte = 1; byte < 256; ++byte) {
        path += static_cast<char>(byte);
    }
    const Url url = Url::fromPath(path);
    EXPECT_TRUE(Url::parse(url.absoluteString())) << url.absoluteString();
    EXPECT_EQ(url.path(), path);
    EXPECT_TRUE(url.isFile());
}

TEST(Url, lastPathComponent_isUnescapedAndIgnoresTrailingSlashes) {
    EXPECT_EQ(Url::parse("file:///opt/My%20App.desktop")->lastPathComponent(), "My App.desktop");
    EXPECT_EQ(Url::parse("file:///opt/folder//")->lastPathComponent(), "folder");
    EXPECT_EQ(Url::parse("file:///opt/a%2Fb")->lastPathComponent(), "a/b");
    EXPECT_EQ(Url::parse("file:///")->lastPathComponent(), "");
    EXPECT_EQ(Url::parse("https://host/page?x=/y#z")->lastPathComponent(), "page");
}

TEST(Url, isFile_onlyForThisMachine) {
    EXPECT_TRUE(Url::parse("file:///a")->isFile());
    EXPECT_TRUE(Url::parse("FILE://localhost/a")->isFile());
    EXPECT_FALSE(Url::parse("file://server/a")->isFile());
    EXPECT_FALSE(Url::parse("https:///a")->isFile());
}

} // namespace
} // namespace dwellkey
