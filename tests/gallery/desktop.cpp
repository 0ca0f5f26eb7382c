// SPDX-License-Identifier: MIT
#include "desktop.h"

#include <QApplication>

namespace dwellkey {
namespace {

Url entry(const char* file) {
    return Url::fromPath(std::string("/usr/share/applications/") + file + ".desktop");
}

} // namespace

Desktop::Desktop() {
    Platform::install(fake.platform());
    fake.localizer.translate = [this](const char* context, const char* text) {
        return localizer_.localized(context, text);
    };
    fake.bundleReader.infoStrings["CFBundleShortVersionString"] = "0.1.0";
    install("org.gnome.TextEditor", "Text Editor", "accessories-text-editor");
    install("org.example.Browser", "Web Browser", "web-browser");
    install("org.example.Calculator", "Calculator", "accessories-calculator");
    install("org.example.Mail", "Mail", "mail-unread");
    install("org.example.Terminal", "Terminal", "utilities-terminal");
    fake.workspace.launchInFront("org.gnome.TextEditor", "Text Editor",
                                 entry("org.gnome.TextEditor"));
    preferences.addApp(entry("org.example.Browser"));
    preferences.addApp(entry("org.example.Terminal"));
    preferences.addApp(entry("org.example.Mail"));
    fake.bundleReader.uninstall(entry("org.example.Mail"));
}

Desktop& Desktop::shared() {
    static auto* const instance = new Desktop;
    return *instance;
}

void Desktop::turn() {
    constexpr int nestedLayouts = 5; // a new size takes a turn to reach the next one outside
    for (int i = 0; i < nestedLayouts; ++i) {
        fake.runLoop.runPosted();
        QApplication::processEvents();
    }
}

void Desktop::install(const char* file, const char* name, const char* icon) {
    const Url url = entry(file);
    fake.bundleReader.install(url, {file, name});
    fake.workspace.icons[url.path()] = {icon};
    fake.applicationCatalog.listed.push_back({url, file, name, {icon}});
}

} // namespace dwellkey
