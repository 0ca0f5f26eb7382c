// SPDX-License-Identifier: MIT
// Applications that a test starts, brings to the front and quits. std only.
#pragma once

#include "platform/workspace.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dwellkey {

class FakeRunningApplication final : public RunningApplication {
public:
    explicit FakeRunningApplication(std::optional<std::string> applicationIdentifier,
                                    std::optional<std::string> applicationName = std::nullopt,
                                    std::optional<Url> applicationUrl = std::nullopt)
        : identifier(std::move(applicationIdentifier)), name(std::move(applicationName)),
          url(std::move(applicationUrl)) {}

    [[nodiscard]] const std::optional<std::string>& bundleIdentifier() const override {
        return identifier;
    }
    [[nodiscard]] const std::optional<Url>& bundleUrl() const override { return url; }
    [[nodiscard]] const std::optional<std::string>& localizedName() const override { return name; }
    [[nodiscard]] bool isFileManager() const override { return fileManager; }
    [[nodiscard]] bool isOurselves() const override { return ourselves; }
    [[nodiscard]] bool isTerminated() const override { return terminated; }
    void terminate() override {
        ++terminateCount;
        if (onTerminate) {
            onTerminate();
        }
    }

    std::optional<std::string> identifier;
    std::optional<std::string> name;
    std::optional<Url> url;
    bool fileManager = false;
    bool ourselves = false;
    bool terminated = false;
    int terminateCount = 0;
    /// What the application does when it is asked to quit; nothing: it refuses.
    std::function<void()> onTerminate;
};

class FakeWorkspace final : public Workspace {
public:
    [[nodiscard]] std::shared_ptr<RunningApplication> frontmostApplication() const override {
        return frontmost_;
    }
    void confirmFrontmostApplication() override {
        if (const auto unannounced = std::exchange(unannouncedFrontmost, nullptr)) {
            setFrontmost(unannounced);
        }
    }
    [[nodiscard]] std::vector<std::shared_ptr<RunningApplication>>
    runningApplications() const override {
        return {running_.begin(), running_.end()};
    }
    [[nodiscard]] std::vector<std::shared_ptr<RunningApplication>>
    runningApplications(std::string_view bundleIdentifier) const override;
    [[nodiscard]] Image icon(const std::string& path) const override;
    bool openUrl(std::string_view address) override;
    void activateOurselves() override { ++activateOurselvesCount; }

    /// Starts an application behind the present one.
    std::shared_ptr<FakeRunningApplication> launch(std::optional<std::string> identifier,
                                                   std::optional<std::string> name = std::nullopt,
                                                   std::optional<Url> url = std::nullopt);
    /// Starts an application and brings it to the front.
    std::shared_ptr<FakeRunningApplication>
    launchInFront(std::optional<std::string> identifier,
                  std::optional<std::string> name = std::nullopt,
                  std::optional<Url> url = std::nullopt);
    /// Null: no application is in front. Emits `didActivateApplication` when that is a change.
    void setFrontmost(const std::shared_ptr<RunningApplication>& application);
    /// The application's process ended.
    void quit(const std::shared_ptr<FakeRunningApplication>& application);

    /// Who is really in front while `frontmostApplication` still names another.
    std::shared_ptr<RunningApplication> unannouncedFrontmost;

    std::map<std::string, Image> icons; // by path
    std::vector<std::string> openedUrls;
    bool canOpenUrls = true;
    int activateOurselvesCount = 0;

private:
    std::vector<std::shared_ptr<FakeRunningApplication>> running_;
    std::shared_ptr<RunningApplication> frontmost_;
};

} // namespace dwellkey
