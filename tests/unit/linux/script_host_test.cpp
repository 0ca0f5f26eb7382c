// SPDX-License-Identifier: MIT
#include "platform/linux/resource_files.h"
#include "platform/linux/script_host.h"

#include <gtest/gtest.h>
#include <vector>

namespace dwellkey {
namespace {

class RecordingCloser : public FrontWindowCloser {
public:
    std::optional<std::string> closeFrontWindow(std::string_view applicationName) override {
        asked.emplace_back(applicationName);
        return answer;
    }
    std::vector<std::string> asked;
    std::optional<std::string> answer;
};

class WindowScriptHostTest : public ::testing::Test {
protected:
    /// The shipped script with the name put in, as the models do it.
    static std::string shippedScript(std::string_view name) {
        std::string source = ResourceFiles(ResourceFiles::defaultFolders())
                                 .resourceText("CloseWindow", "scpt")
                                 .value();
        constexpr std::string_view placeholder = "<<app>>";
        const auto at = source.find(placeholder);
        return source.replace(at, placeholder.size(), name);
    }

    RecordingCloser closer;
    WindowScriptHost host{closer};
};

TEST_F(WindowScriptHostTest, execute_shippedScript_closesTheNamedApplicationWhateverItsName) {
    const std::vector<std::string> names = {
        "Files",           "a \"quoted\" name",  "-- not a comment",
        "<<app>>",         "tell application X", "close front window",
        "Füße \\n & co.  "};
    for (const auto& name : names) {
        const auto script = host.compile(shippedScript(name));
        ASSERT_NE(script, nullptr) << name;
        EXPECT_FALSE(script->execute().has_value());
    }
    EXPECT_EQ(closer.asked, names);
}

TEST_F(WindowScriptHostTest, execute_closerFails_reportsItsCause) {
    closer.answer = "no window is open";
    const auto error = host.compile(shippedScript("Files"))->execute();
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->message, "no window is open");
}

TEST_F(WindowScriptHostTest, compile_carriageReturnsAndBlankLines_areNotPartOfTheName) {
    const auto script = host.compile("-- x\r\n\r\n \ttell\r\n");
    EXPECT_EQ(script, nullptr);
    host.compile("--x\r\n  \r\ntell application Files\r\n\r\nclose front window\r\n")->execute();
    EXPECT_EQ(closer.asked, std::vector<std::string>{"Files"});
}

TEST_F(WindowScriptHostTest, compile_anythingElse_isNoScript) {
    for (const std::string_view source :
         {"", "-- only a comment", "tell application Files", "close front window",
          "tell application \nclose front window", "tell application\nclose front window",
          "close front window\ntell application Files",
          "tell application A\nclose front window\nclose front window",
          "tell application A\ntell application B\nclose front window",
          "tell application A\nclose front windows", "Tell application A\nclose front window",
          "tell application A\n close front window"}) {
        EXPECT_EQ(host.compile(source), nullptr) << source;
    }
    EXPECT_EQ(host.compile(shippedScript("A\nclose front window")), nullptr)
        << "a name must not be able to add a statement";
    EXPECT_TRUE(closer.asked.empty());
}

} // namespace
} // namespace dwellkey
