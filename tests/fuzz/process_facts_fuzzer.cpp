// SPDX-License-Identifier: MIT
// What a process chose for its sandbox file and its unit's name gives names or nothing.
#include "fuzz_check.h"
#include "platform/linux/process_facts.h"

using namespace dwellkey;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::textOf(data, size);
    if (const auto snap = snapApplication(text)) {
        fuzz::check(!snap->instanceName.empty() && !snap->application.empty(), "a snap is named");
    }
    for (const std::string& id : sessionUnitApplications(text)) {
        fuzz::check(!id.empty(), "an id is not empty");
    }
    if (const auto id = flatpakApplication(text)) {
        fuzz::check(!id->empty(), "an id is not empty");
    }
    return 0;
}
