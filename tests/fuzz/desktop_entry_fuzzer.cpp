// SPDX-License-Identifier: MIT
// Whatever is in an applications folder is either refused with a cause, or an application that can
// be shown.
#include "fuzz_check.h"
#include "platform/linux/desktop_entry.h"
#include "platform/linux/display_name.h"

using namespace dwellkey;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const LocaleNames locales({"sr_RS.UTF-8@latin", "de"});
    const auto result = parseDesktopEntry(fuzz::textOf(data, size), locales);
    if (const auto* problem = std::get_if<DesktopEntryProblem>(&result)) {
        fuzz::check(!problem->cause.empty(), "a refusal has a cause");
        return 0;
    }
    const auto& entry = std::get<DesktopEntry>(result);
    fuzz::check(entry.hidden || !entry.name.empty(), "an application has a name");
    if (const auto program = programOf(entry)) {
        fuzz::check(!program->name.empty(), "a program has a name");
    }
    if (const auto name = displayName(entry.name)) {
        fuzz::check(name->size() <= 256, "a name has its bound");
        fuzz::check(name->find_first_of("\n\r\t\x7F") == std::string::npos, "a name is one line");
        fuzz::check(displayName(*name) == name, "a name that is fit for display stays as it is");
    }
    return 0;
}
