// SPDX-License-Identifier: MIT
#include "binder/windows/about_window_controller.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QWindow>

namespace dwellkey {
namespace {

/// Hands a press on the background over to the window manager, which moves the window.
class BackgroundDrag final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* window = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::MouseButtonPress && window != nullptr
            && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton
            && window->windowHandle() != nullptr) {
            window->windowHandle()->startSystemMove();
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

AboutWindowController::AboutWindowController(Platform& platform)
    : WindowController(nibName, platform) {}

AboutWindowController::~AboutWindowController() = default;

void AboutWindowController::connectOutlets() {
    connectOutlet(versionTextField);
}

InterfaceController::Actions AboutWindowController::actions() {
    return {{"openSupport", [this] { openSupport(); }}};
}

// There is no tabbing to disallow: this desktop's windows have none.
void AboutWindowController::windowDidLoad() {
    window().installEventFilter(new BackgroundDrag(&window()));
    if (const auto version = platform().bundleReader.infoString("CFBundleShortVersionString")) {
        versionTextField->setText(QCoreApplication::translate("AboutWindowController", "Version %1")
                                      .arg(QString::fromStdString(*version)));
    }
}

void AboutWindowController::openSupport() {
    if (const auto page = platform().bundleReader.pathForResource("help/index", "html")) {
        platform().workspace.openUrl(Url::fromPath(*page).absoluteString());
    }
}

} // namespace dwellkey
