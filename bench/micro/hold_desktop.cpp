// SPDX-License-Identifier: MIT
#include "micro/hold_desktop.h"

#include <iomanip>
#include <sstream>
#include <utility>

namespace dwellkey::bench {

namespace {

std::string identifier(std::size_t number) {
    std::ostringstream text;
    text << "org.example.Application" << std::setw(6) << std::setfill('0') << number;
    return text.str();
}

} // namespace

std::vector<Url> installApplications(FakePlatform& platform, std::size_t count) {
    std::vector<Url> urls;
    for (std::size_t number = 0; number < count; ++number) {
        const std::string name = identifier(number);
        urls.push_back(Url::fromPath("/usr/share/applications/" + name + ".desktop"));
        platform.bundleReader.install(urls.back(), {name, std::nullopt});
    }
    return urls;
}

HoldDesktop::HoldDesktop(std::size_t listedApplications, double delay) {
    std::vector<AppInfo> apps;
    for (const Url& url : installApplications(*this, listedApplications)) {
        apps.emplace_back(url, platform());
    }
    preferences.setApps(std::move(apps));
    preferences.setDelayUntilActivation(delay);
    workspace.launchInFront(identifier(listedApplications), "Editor");
    runLoop.runPosted();
}

} // namespace dwellkey::bench
