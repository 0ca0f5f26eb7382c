// SPDX-License-Identifier: MIT
#include "platform/fake/fake_workspace.h"

namespace dwellkey {

std::vector<std::shared_ptr<RunningApplication>>
FakeWorkspace::runningApplications(std::string_view bundleIdentifier) const {
    std::vector<std::shared_ptr<RunningApplication>> found;
    for (const auto& application : running_) {
        if (application->identifier == bundleIdentifier) {
            found.push_back(application);
        }
    }
    return found;
}

Image FakeWorkspace::icon(const std::string& path) const {
    const auto found = icons.find(path);
    return found == icons.end() ? Image{"application-x-executable"} : found->second;
}

bool FakeWorkspace::openUrl(std::string_view address) {
    openedUrls.emplace_back(address);
    return canOpenUrls;
}

std::shared_ptr<FakeRunningApplication> FakeWorkspace::launch(std::optional<std::string> identifier,
                                                              std::optional<std::string> name,
                                                              std::optional<Url> url) {
    return running_.emplace_back(std::make_shared<FakeRunningApplication>(
        std::move(identifier), std::move(name), std::move(url)));
}

std::shared_ptr<FakeRunningApplication>
FakeWorkspace::launchInFront(std::optional<std::string> identifier, std::optional<std::string> name,
                             std::optional<Url> url) {
    auto application = launch(std::move(identifier), std::move(name), std::move(url));
    setFrontmost(application);
    return application;
}

void FakeWorkspace::setFrontmost(const std::shared_ptr<RunningApplication>& application) {
    if (application == frontmost_) {
        return;
    }
    frontmost_ = application;
    didActivateApplication.emit(application);
}

void FakeWorkspace::quit(const std::shared_ptr<FakeRunningApplication>& application) {
    std::erase(running_, application);
    application->terminated = true;
    if (frontmost_ == application) {
        setFrontmost(nullptr);
    }
}

} // namespace dwellkey
