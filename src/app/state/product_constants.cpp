// SPDX-License-Identifier: MIT
#include "app/state/product_constants.h"

#include "platform/platform.h"

#include <ctime>

namespace dwellkey {
namespace {

int currentYear() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local.tm_year + 1900;
}

} // namespace

std::string readAppVersion(const BundleReader& bundleReader) {
    return bundleReader.infoString("CFBundleShortVersionString").value_or("Unknown");
}

const std::string& appVersion() {
    static const auto* const version =
        new std::string(readAppVersion(Platform::shared().bundleReader));
    return *version;
}

int copyrightYear() {
    static const int year = currentYear();
    return year;
}

} // namespace dwellkey
