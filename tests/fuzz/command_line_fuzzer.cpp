// SPDX-License-Identifier: MIT
// Any Exec value is either refused with a cause, or names what it starts; plain words come out as
// they went in.
#include "fuzz_check.h"
#include "platform/linux/exec_command.h"

#include <string>

using namespace dwellkey;

namespace {

std::string quoted(const std::string& word) {
    std::string result = "\"";
    for (const char c : word) {
        if (std::string_view("\"`$\\").find(c) != std::string_view::npos) {
            result += '\\';
        }
        result += c == '%' ? std::string("%%") : std::string(1, c);
    }
    return result + "\" ";
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto result = parseExec(fuzz::textOf(data, size));
    if (const auto* problem = std::get_if<ExecProblem>(&result)) {
        fuzz::check(!problem->cause.empty(), "a refusal has a cause");
        return 0;
    }
    const auto& words = std::get<CommandWords>(result);
    fuzz::check(!words.empty() && !words.front().empty(), "a command has a program");
    std::string line;
    for (const std::string& word : words) {
        line += quoted(word);
    }
    const auto again = parseExec(line);
    fuzz::check(std::get<CommandWords>(again) == words, "quoted words come back");
    if (const auto program = programOf(words)) {
        fuzz::check(!program->name.empty(), "a program has a name");
    }
    return 0;
}
