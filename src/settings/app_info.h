// SPDX-License-Identifier: MIT
// One application of the user's list. std only.
#pragma once

#include "platform/image.h"
#include "platform/platform.h"
#include "support/url.h"
#include "support/uuid.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace dwellkey {

/// A value: what the application at `url` looked like when the record was built. Only the URL is
/// ever stored; everything else is found anew at each start.
class AppInfo {
public:
    AppInfo(Url url, const Platform& platform);

    /// Identity of the row; another one each time a record is built.
    [[nodiscard]] const Uuid& id() const { return id_; }
    [[nodiscard]] const Url& url() const { return url_; }
    /// Read off the URL; the application's own, translated name is the BundleReader's to tell.
    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] const Image& icon() const { return icon_; }
    /// Absent when no application can be read at `url`, or when it declares no identifier.
    [[nodiscard]] const std::optional<std::string>& bundleID() const { return bundleID_; }
    /// Whether that is `identifier`, whose std::hash is `hash`. A walk over thousands of records
    /// that fit no hash touches none of their texts.
    [[nodiscard]] bool isIdentifiedBy(std::string_view identifier, std::size_t hash) const {
        return bundleIDHash_ == hash && bundleID_ == identifier;
    }

    /// Whether a file was at the URL's path when somebody last looked.
    bool existsOnDisk = true;

    /// All six; so two records of one application differ by their ids.
    bool operator==(const AppInfo& other) const;

private:
    Uuid id_ = Uuid::random();
    Url url_;
    std::string name_;
    Image icon_;
    std::optional<std::string> bundleID_;
    std::size_t bundleIDHash_; // of "" where there is none
};

} // namespace dwellkey

template <>
struct std::hash<dwellkey::AppInfo> {
    std::size_t operator()(const dwellkey::AppInfo& app) const noexcept;
};
