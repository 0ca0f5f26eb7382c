// SPDX-License-Identifier: MIT
#include "app/x11_backend.h"

#include "platform/linux/application_identity.h"
#include "platform/linux/autostart_login_item.h"
#include "platform/linux/default_file_manager.h"
#include "platform/linux/desktop_entry_index.h"
#include "platform/linux/environment.h"
#include "platform/linux/json_user_defaults.h"
#include "platform/linux/linux_application_catalog.h"
#include "platform/linux/linux_bundle_reader.h"
#include "platform/linux/message_bus.h"
#include "platform/linux/process_facts.h"
#include "platform/linux/resource_files.h"
#include "platform/linux/script_host.h"
#include "platform/linux/system_shortcuts.h"
#include "platform/qt/qt_alerts.h"
#include "platform/qt/qt_application_actions.h"
#include "platform/qt/qt_key_capture.h"
#include "platform/qt/qt_localizer.h"
#include "platform/qt/qt_menu_bar_extra.h"
#include "platform/qt/qt_menu_tracking.h"
#include "platform/qt/qt_native_events.h"
#include "platform/qt/qt_run_loop.h"
#include "platform/qt/qt_session_end.h"
#include "platform/qt/qt_session_lock.h"
#include "platform/qt/qt_translations.h"
#include "platform/qt/qt_url_opener.h"
#include "platform/x11/x11_connection.h"
#include "platform/x11/x11_hot_keys.h"
#include "platform/x11/x11_keyboard_layout.h"
#include "platform/x11/x11_panel_support.h"
#include "platform/x11/x11_startup_notice.h"
#include "platform/x11/x11_workspace.h"

#include <QApplication>
#include <QLocale>
#include <QThreadPool>
#include <chrono>
#include <optional>
#include <utility>

namespace dwellkey {
namespace {

// Far more than a bus needs, and soon enough for somebody who waits for the shortcuts.
constexpr std::chrono::milliseconds busPatience{300};

/// Our windows must live on the server whose keys we guard, also where Wayland is to be had. The
/// variable that says so is the user's again afterwards: programs that we start inherit it.
class PlatformChoice {
public:
    PlatformChoice() { qputenv(variable, "xcb"); }
    PlatformChoice(const PlatformChoice&) = delete;
    PlatformChoice& operator=(const PlatformChoice&) = delete;
    ~PlatformChoice() {
        if (users_) {
            qputenv(variable, *users_);
        } else {
            qunsetenv(variable);
        }
    }

private:
    static constexpr const char* variable = "QT_QPA_PLATFORM";
    std::optional<QByteArray> users_ =
        qEnvironmentVariableIsSet(variable) ? std::optional(qgetenv(variable)) : std::nullopt;
};

/// The toolkit, told that it is not its windows that keep the process alive.
class Toolkit {
public:
    Toolkit(int& argc, char** argv) : application_(argc, argv) {
        QApplication::setApplicationName(QStringLiteral("dwellkey"));
        QApplication::setDesktopFileName(QStringLiteral("org.dwellkey.Dwellkey"));
        QApplication::setQuitOnLastWindowClosed(false);
        // It paints large shapes in threads, which would wake up half a minute later to end.
        QThreadPool::globalInstance()->setExpiryTimeout(0);
    }

private:
    QApplication application_;
    QtNativeEvents nativeEvents_;
};

/// What every Linux desktop shares.
struct LinuxServices {
    LinuxServices(RunLoop& runLoop, const Localizer& localizer, ErrorLog& errorLog)
        : userDefaults(JsonUserDefaults::defaultPath(), runLoop, errorLog),
          entries(runLoop, folders.applicationFolders(), LocaleNames::from(environment),
                  splitList(environment("PATH").value_or(""), ':')),
          fileManager(runLoop, entries, folders,
                      splitList(environment("XDG_CURRENT_DESKTOP").value_or(""), ':')),
          identifier(entries, fileManager, processes),
          bundleReader(entries, ResourceFiles(ResourceFiles::defaultFolders())),
          loginItem(AutostartPlaces::from(environment), runLoop, localizer),
          applicationCatalog(entries, localizer) {}

    Environment environment = processEnvironment();
    BaseFolders folders = BaseFolders::from(environment);
    JsonUserDefaults userDefaults;
    DesktopEntryIndex entries;
    DefaultFileManager fileManager;
    ProcFolderReader processes;
    ApplicationIdentifier identifier;
    LinuxBundleReader bundleReader;
    AutostartLoginItem loginItem;
    LinuxApplicationCatalog applicationCatalog;
};

class X11Backend final : public Backend {
public:
    X11Backend(std::unique_ptr<X11Connection> connection, int& argc, char** argv,
               ErrorLog& errorLog)
        : connection_(std::move(connection)), toolkit_(argc, argv),
          linux_(runLoop_, localizer_, errorLog),
          workspace_(*connection_, linux_.identifier, actions_, localizer_,
                     {[this](const std::string& path) { return linux_.bundleReader.icon(path); },
                      openUrl, [this] { terminationRequested.emit(); }}),
          scriptHost_(workspace_), hotKeys_(*connection_, runLoop_, errorLog),
          keyboardLayout_(*connection_), panelSupport_(*connection_),
          systemShortcuts_(linux_.environment, keyboardLayout_, errorLog),
          menuBarExtra_(findTemplateIcon(QStringLiteral("org.dwellkey.Dwellkey-symbolic"),
                                         ResourceFiles::defaultFolders()),
                        splitList(linux_.environment("XDG_CURRENT_DESKTOP").value_or(""), ':'),
                        errorLog),
          windowHost_(errorLog), platform_{runLoop_,
                                           runLoop_,
                                           linux_.userDefaults,
                                           workspace_,
                                           linux_.bundleReader,
                                           linux_.loginItem,
                                           workspace_,
                                           scriptHost_,
                                           alerts_,
                                           hotKeys_,
                                           keyboardLayout_,
                                           systemShortcuts_,
                                           menuTracking_,
                                           beeper_,
                                           errorLog,
                                           windowHost_,
                                           panelSupport_,
                                           localizer_,
                                           keyCapture_,
                                           linux_.applicationCatalog,
                                           menuBarExtra_},
          lost_(connection_->lost.subscribe(
              [this] { lost.emit("the connection to the X server broke"); })),
          didLock_(sessionLock_.didLock.subscribe([this] {
              hotKeys_.releaseAll();
              keyCapture_.mustEnd.emit();
          })) {
        connection_->attach(runLoop_);
        runLoop_.post([this, &errorLog] { // after the hot keys are live
            translations_.emplace(QLocale::system().uiLanguages());
            sessionLock_.start();
            menuBarExtra_.start();
            watchInstalledApplications(errorLog);
        });
    }

    Platform& platform() override { return platform_; }
    QtWindowHost& windowHost() override { return windowHost_; }
    void endStartupNotification(std::string_view startupId) override {
        dwellkey::endStartupNotification(*connection_, startupId);
    }
    int run() override { return QApplication::exec(); }
    void quit(int status) override { QApplication::exit(status); }

private:
    void watchInstalledApplications(ErrorLog& errorLog) {
        // An installation changes many files: look when it has been quiet for a while.
        installedChanged_ = linux_.entries.didChange.subscribe([this] {
            identifyAgain_ = runLoop_.repeat(std::chrono::seconds(2), [this] {
                identifyAgain_.cancel();
                workspace_.identifyAgain();
            });
        });
        static_cast<void>(linux_.entries.applications()); // looks, and so begins to watch
        for (const std::string& folder : linux_.entries.leftOut()) {
            errorLog.error("Some folders of applications are left out.", folder);
        }
        if (const auto& problem = linux_.entries.watchProblem()) {
            errorLog.error("Newly installed applications go unnoticed until the next start.",
                           *problem);
        }
    }

    std::unique_ptr<X11Connection> connection_;
    Toolkit toolkit_;
    QtRunLoop runLoop_;
    QtLocalizer localizer_;
    std::optional<QtTranslations> translations_; // before any window
    LinuxServices linux_;
    QtApplicationActions actions_;
    X11Workspace workspace_;
    WindowScriptHost scriptHost_;
    X11HotKeys hotKeys_;
    X11KeyboardLayout keyboardLayout_;
    X11PanelSupport panelSupport_;
    QtAlerts alerts_;
    QtBeeper beeper_;
    QtMenuTracking menuTracking_;
    QtKeyCapture keyCapture_;
    LinuxSystemShortcuts systemShortcuts_;
    QtSessionEnd sessionEnd_{[this] { linux_.userDefaults.synchronize(); }};
    QtSessionLock sessionLock_;
    QtMenuBarExtra menuBarExtra_;
    QtWindowHost windowHost_;
    Platform platform_;
    Subscription lost_;
    Subscription didLock_;
    Subscription installedChanged_;
    Subscription identifyAgain_;
};

} // namespace

std::variant<std::unique_ptr<Backend>, std::string> startX11Backend(int& argc, char** argv,
                                                                    ErrorLog& errorLog) {
    auto connection = X11Connection::open();
    if (auto* reason = std::get_if<std::string>(&connection)) {
        return std::move(*reason);
    }
    const PlatformChoice xcb;
    avoidMuteBuses(busPatience);
    return std::make_unique<X11Backend>(
        std::get<std::unique_ptr<X11Connection>>(std::move(connection)), argc, argv, errorLog);
}

} // namespace dwellkey
