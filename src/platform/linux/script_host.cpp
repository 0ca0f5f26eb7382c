// SPDX-License-Identifier: MIT
#include "platform/linux/script_host.h"

#include <utility>
#include <vector>

namespace dwellkey {
namespace {

constexpr std::string_view tellApplication = "tell application ";
constexpr std::string_view closeStatement = "close front window";

class CloseWindowScript final : public Script {
public:
    CloseWindowScript(FrontWindowCloser& closer, std::string applicationName)
        : closer_(closer), applicationName_(std::move(applicationName)) {}

    std::optional<Error> execute() override {
        if (auto cause = closer_.closeFrontWindow(applicationName_)) {
            return Error{std::move(*cause)};
        }
        return std::nullopt;
    }

private:
    FrontWindowCloser& closer_;
    std::string applicationName_;
};

std::string_view takeLine(std::string_view& source) {
    const auto end = source.find('\n');
    std::string_view line = source.substr(0, end);
    source.remove_prefix(end == std::string_view::npos ? source.size() : end + 1);
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return line;
}

std::vector<std::string_view> statements(std::string_view source) {
    std::vector<std::string_view> found;
    while (!source.empty()) {
        const std::string_view line = takeLine(source);
        const bool isBlank = line.find_first_not_of(" \t") == std::string_view::npos;
        if (!isBlank && !line.starts_with("--")) {
            found.push_back(line);
        }
    }
    return found;
}

} // namespace

std::unique_ptr<Script> WindowScriptHost::compile(std::string_view source) {
    const auto lines = statements(source);
    if (lines.size() != 2 || !lines[0].starts_with(tellApplication) || lines[1] != closeStatement) {
        return nullptr;
    }
    const std::string_view name = lines[0].substr(tellApplication.size());
    if (name.empty()) {
        return nullptr;
    }
    return std::make_unique<CloseWindowScript>(closer_, std::string(name));
}

} // namespace dwellkey
