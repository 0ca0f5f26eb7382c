// SPDX-License-Identifier: MIT
#include "settings/app_info.h"

#include <string_view>
#include <utility>

namespace dwellkey {
namespace {

constexpr std::string_view applicationSuffix = ".app";
constexpr std::string_view desktopEntrySuffix = ".desktop";

/// A desktop entry loses its file suffix and nothing else: it is what a missing application is
/// listed by, and "io.appflowy.AppFlowy" has an ".app" of its own. Elsewhere every ".app" goes,
/// wherever it stands: that rule is shared with lists that were written on other desktops.
std::string nameOf(const Url& url) {
    std::string name = url.lastPathComponent();
    if (name.ends_with(desktopEntrySuffix)) {
        name.resize(name.size() - desktopEntrySuffix.size());
        return name;
    }
    std::size_t at = name.find(applicationSuffix);
    while (at != std::string::npos) {
        name.erase(at, applicationSuffix.size());
        at = name.find(applicationSuffix, at);
    }
    return name;
}

class Hasher {
public:
    template <typename Value>
    Hasher& feed(const Value& value) {
        state_ ^= std::hash<Value>{}(value) + 0x9e3779b97f4a7c15U + (state_ << 6U) + (state_ >> 2U);
        return *this;
    }
    [[nodiscard]] std::size_t finish() const { return state_; }

private:
    std::size_t state_ = 0;
};

} // namespace

AppInfo::AppInfo(Url url, const Platform& platform)
    : url_(std::move(url)), name_(nameOf(url_)), icon_(platform.workspace.icon(url_.path())),
      bundleID_(platform.bundleReader.bundleIdentifier(url_)),
      bundleIDHash_(std::hash<std::string>{}(bundleID_.value_or(""))) {}

bool AppInfo::operator==(const AppInfo& other) const {
    return id_ == other.id_ && url_ == other.url_ && name_ == other.name_ && icon_ == other.icon_
           && bundleID_ == other.bundleID_ && existsOnDisk == other.existsOnDisk;
}

} // namespace dwellkey

std::size_t std::hash<dwellkey::AppInfo>::operator()(const dwellkey::AppInfo& app) const noexcept {
    dwellkey::Hasher hasher;
    hasher.feed(app.id()).feed(app.url().absoluteString()).feed(app.name()).feed(app.icon().name);
    hasher.feed<std::uint8_t>(app.bundleID() ? 1 : 0);
    if (app.bundleID()) {
        hasher.feed(*app.bundleID());
    }
    return hasher.feed(app.existsOnDisk).finish();
}
