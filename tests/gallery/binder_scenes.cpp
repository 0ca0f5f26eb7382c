// SPDX-License-Identifier: MIT
#include "binder_scenes.h"

#include "binder/loader/ui_loader.h"
#include "binder/timer_window_controller.h"
#include "binder/windows/about_window_controller.h"
#include "binder/windows/intro_view_controller.h"
#include "binder/windows/panel_window.h"
#include "binder/windows/preferences_window_controller.h"
#include "keycommands/key_command_coding.h"

#include <QApplication>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace dwellkey {
namespace {

/// The process's loader of the shipped files, while it lives.
class ShippedFiles {
public:
    explicit ShippedFiles(FakePlatform& platform)
        : loader_(platform.bundleReader, platform.errorLog) {
        for (const char* name : {"AboutWindowController.ui", "IntroViewController.ui",
                                 "PreferencesWindowController.ui", "TimerWindowController.ui"}) {
            std::ifstream file(std::string(DWELLKEY_RESOURCES "/") + name);
            platform.bundleReader.resources[name] = {std::istreambuf_iterator<char>(file), {}};
        }
        InterfaceLoader::install(&loader_);
    }
    ShippedFiles(const ShippedFiles&) = delete;
    ShippedFiles& operator=(const ShippedFiles&) = delete;
    ~ShippedFiles() { InterfaceLoader::install(nullptr); }

private:
    UiLoader loader_;
};

void present(WindowController& controller, const Look& look) {
    controller.showWindow();
    QApplication::processEvents();
    look(controller.window());
    controller.close();
}

void preferences(FakePlatform& platform, const Look& look) {
    const auto shortcut =
        encode(KeyCommandContent{Key::q, {Modifier::command}, KeyCommand::Name("quitShortcut")});
    platform.userDefaults.set("quitShortcut", Data{std::get<std::string>(shortcut)});
    platform.userDefaults.set(
        "apps", std::vector<std::string>{"/usr/share/applications/org.gnome.TextEditor.desktop",
                                         "/usr/share/applications/firefox.desktop"});
    PreferencesWindowController controller(platform.platform());
    present(controller, look);
}

void introduction(FakePlatform& platform, const Look& look) {
    IntroViewController controller(platform.platform());
    controller.view().show();
    QApplication::processEvents();
    look(controller.view());
}

void panel(FakePlatform& platform, const Look& look) {
    platform.panelSupport.composited = true;
    PanelInterfaceFiles files(platform.panelSupport);
    TimerWindowController controller(std::string(TimerWindowController::nibName),
                                     platform.platform(), files);
    controller.showWindow();
    controller.titleLabel->setStringValue("Hold to Close Window");
    controller.setProgress(0.6);
    QApplication::processEvents();
    platform.runLoop.runPosted();
    const auto windows = QApplication::topLevelWidgets();
    const auto shown = std::ranges::find_if(windows, &QWidget::isVisible);
    look(**shown);
}

} // namespace

std::vector<Scene> binderScenes(FakePlatform& platform) {
    const auto scene = [&platform](std::string name, void (*play)(FakePlatform&, const Look&)) {
        return Scene{std::move(name), [&platform, play](const Look& look) {
                         const ShippedFiles files(platform);
                         play(platform, look);
                     }};
    };
    return {
        scene("binder-preferences", preferences),
        scene("binder-about",
              [](FakePlatform& desktop, const Look& look) {
                  AboutWindowController controller(desktop.platform());
                  present(controller, look);
              }),
        scene("binder-introduction", introduction),
        scene("binder-hold", panel),
    };
}

} // namespace dwellkey
