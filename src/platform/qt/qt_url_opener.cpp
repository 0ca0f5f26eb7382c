// SPDX-License-Identifier: MIT
#include "platform/qt/qt_url_opener.h"

#include "platform/workspace.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <algorithm>
#include <array>

namespace dwellkey {
namespace {

struct SettingsPage {
    const char* desktop; // as XDG_CURRENT_DESKTOP names it
    const char* program;
    const char* argument;
};

constexpr auto settingsPages = std::to_array<SettingsPage>({
    {"GNOME", "gnome-control-center", "universal-access"},
    {"Unity", "unity-control-center", "universal-access"},
    {"KDE", "systemsettings", "kcm_access"},
    {"XFCE", "xfce4-accessibility-settings", nullptr},
    {"X-Cinnamon", "cinnamon-settings", "universal-access"},
    {"MATE", "mate-at-properties", nullptr},
    {"LXQt", "lxqt-config", nullptr},
});

bool start(const SettingsPage& page) {
    const QString program = QStandardPaths::findExecutable(QString::fromLatin1(page.program));
    QStringList arguments;
    if (page.argument != nullptr) {
        arguments << QString::fromLatin1(page.argument);
    }
    return !program.isEmpty() && QProcess::startDetached(program, arguments);
}

bool openAccessibilitySettings() {
    const auto desktops = QString::fromLocal8Bit(qgetenv("XDG_CURRENT_DESKTOP"))
                              .split(QLatin1Char(':'), Qt::SkipEmptyParts);
    return std::ranges::any_of(settingsPages, [&](const SettingsPage& page) {
        return desktops.contains(QString::fromLatin1(page.desktop)) && start(page);
    });
}

} // namespace

bool openUrl(std::string_view address) {
    if (address == accessibilitySettingsAddress) {
        return openAccessibilitySettings();
    }
    const auto text = QString::fromUtf8(address.data(), static_cast<qsizetype>(address.size()));
    const QUrl url(text, QUrl::StrictMode);
    return url.isValid() && QDesktopServices::openUrl(url);
}

} // namespace dwellkey
