// SPDX-License-Identifier: MIT
// Scripted applications and resources. std only.
#pragma once

#include "platform/bundle_reader.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace dwellkey {

class FakeBundleReader final : public BundleReader {
public:
    struct Bundle {
        std::optional<std::string> identifier;
        std::optional<std::string> name;
    };

    [[nodiscard]] std::optional<std::string> bundleIdentifier(const Url& url) const override {
        const auto found = bundles_.find(url.absoluteString());
        return found == bundles_.end() ? std::nullopt : found->second.identifier;
    }
    [[nodiscard]] std::optional<std::string> localizedName(const Url& url) const override {
        const auto found = bundles_.find(url.absoluteString());
        return found == bundles_.end() ? std::nullopt : found->second.name;
    }
    [[nodiscard]] bool fileExists(const std::string& path) const override {
        return files.count(path) != 0;
    }
    [[nodiscard]] std::optional<std::string> resourceText(std::string_view name,
                                                          std::string_view type) const override {
        return lookUp(resources, std::string(name) + "." + std::string(type));
    }
    [[nodiscard]] std::optional<std::string> pathForResource(std::string_view name,
                                                             std::string_view type) const override {
        const std::string file = std::string(name) + "." + std::string(type);
        const bool isInstalled = resources.contains(file) || unreadableResources.contains(file);
        return isInstalled ? std::optional(resourceFolder + file) : std::nullopt;
    }
    [[nodiscard]] std::variant<std::string, ResourceError>
    fileText(const std::string& path) const override {
        const auto text = path.starts_with(resourceFolder)
                              ? lookUp(resources, path.substr(resourceFolder.size()))
                              : std::nullopt;
        if (!text) {
            return ResourceError{path + ": cannot be read"};
        }
        return *text;
    }
    [[nodiscard]] std::optional<std::string> infoString(std::string_view key) const override {
        return lookUp(infoStrings, key);
    }

    /// Installs an application: it can be read, and its file exists.
    void install(const Url& url, Bundle bundle) {
        bundles_.insert_or_assign(url.absoluteString(), std::move(bundle));
        files.insert(url.path());
    }
    void uninstall(const Url& url) {
        bundles_.erase(url.absoluteString());
        files.erase(url.path());
    }

    using Texts = std::map<std::string, std::string, std::less<>>;

    std::set<std::string> files;               // paths
    Texts resources;                           // by "name.type"
    std::set<std::string> unreadableResources; // installed, but only as files that do not open
    Texts infoStrings;

private:
    static inline const std::string resourceFolder = "/resources/";

    static std::optional<std::string> lookUp(const Texts& texts, std::string_view key) {
        const auto found = texts.find(key);
        return found == texts.end() ? std::nullopt : std::optional(found->second);
    }

    std::map<std::string, Bundle> bundles_; // by absolute URL
};

} // namespace dwellkey
