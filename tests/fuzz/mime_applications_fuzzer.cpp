// SPDX-License-Identifier: MIT
// Whatever mimeapps.list says, only ids come out of it.
#include "fuzz_check.h"
#include "platform/linux/mime_applications.h"

using namespace dwellkey;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto choices = parseMimeApplications(fuzz::textOf(data, size), "inode/directory");
    for (const auto* ids : {&choices.defaults, &choices.added, &choices.removed}) {
        for (const std::string& id : *ids) {
            fuzz::check(!id.empty(), "an id is not empty");
        }
    }
    return 0;
}
