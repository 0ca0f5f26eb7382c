// SPDX-License-Identifier: MIT
// No text makes a script do more than ask for one window of the application that it names, and no
// one-line name put into the shipped script turns into anything else.
#include "fuzz_check.h"
#include "platform/linux/script_host.h"

#include <string>
#include <vector>

using namespace dwellkey;

namespace {

class RecordingCloser final : public FrontWindowCloser {
public:
    std::optional<std::string> closeFrontWindow(std::string_view applicationName) override {
        asked.emplace_back(applicationName);
        return std::nullopt;
    }
    std::vector<std::string> asked;
};

std::vector<std::string> asked(std::string_view source) {
    RecordingCloser closer;
    WindowScriptHost host(closer);
    if (const auto script = host.compile(source)) {
        script->execute();
    }
    return closer.asked;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(fuzz::textOf(data, size));
    const auto names = asked(text);
    fuzz::check(names.size() <= 1, "a script closes one window at most");
    fuzz::check(names.empty() || text.find("tell application " + names[0]) != std::string::npos,
                "the name is as the script spells it");

    const bool isOneLine = text.find_first_of("\r\n") == std::string::npos;
    if (isOneLine && !text.empty()) {
        const auto shipped =
            asked("-- a comment\ntell application " + text + "\nclose front window\n");
        fuzz::check(shipped == std::vector<std::string>{text}, "a name stays a name");
    }
    return 0;
}
