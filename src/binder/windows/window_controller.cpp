// SPDX-License-Identifier: MIT
#include "binder/windows/window_controller.h"

#include "binder/fatal_error.h"
#include "binder/windows/defaults_bindings.h"
#include "binder/windows/interface_loader.h"

#include <QAbstractButton>
#include <QKeySequence>
#include <QScreen>
#include <QShortcut>
#include <QVariant>
#include <utility>

namespace dwellkey {

InterfaceController::InterfaceController(std::string nibName, Platform& platform)
    : nibName_(std::move(nibName)), platform_(platform) {}

InterfaceController::~InterfaceController() = default;

QWidget& InterfaceController::loaded() {
    if (root_ == nullptr) {
        if (InterfaceLoader* loader = InterfaceLoader::shared()) {
            root_ = loader->load(nibName_);
        }
        if (root_ == nullptr) {
            fatalError("The interface file " + nibName_ + ".ui cannot be loaded.");
        }
        connectOutlets();
        connectActions();
        bindings_ = bindToDefaults(*root_, platform_.userDefaults, nibName_);
        didLoad();
    }
    return *root_;
}

void InterfaceController::connectActions() {
    const Actions known = actions();
    for (auto* button : root_->findChildren<QAbstractButton*>()) {
        if (button->icon().availableSizes().isEmpty()) {
            button->setIcon({}); // the desktop's theme lacks it, and an empty one hides the text
        }
        const QVariant property = button->property("action");
        if (!property.isValid()) {
            continue;
        }
        const auto action = known.find(property.toString().toStdString());
        if (action == known.end()) {
            fatalError("The interface file " + nibName_ + ".ui names an unknown action \""
                       + property.toString().toStdString() + "\".");
        }
        QObject::connect(button, &QAbstractButton::clicked, button,
                         [run = action->second] { run(); });
    }
}

void WindowController::didLoad() {
    window().setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint
                            | Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint
                            | Qt::WindowCloseButtonHint);
    auto* close = new QShortcut(QKeySequence(QKeySequence::Close), &window());
    QObject::connect(close, &QShortcut::activated, &window(), &QWidget::close);
    windowDidLoad();
}

void WindowController::showWindow() {
    QWidget& shown = window();
    if (!shown.isVisible()) {
        shown.adjustSize();
        const QRect available = shown.screen()->availableGeometry();
        shown.move(available.center() - shown.rect().center());
        shown.show();
    } else {
        shown.setWindowState(shown.windowState() & ~Qt::WindowMinimized);
    }
    shown.raise();
    shown.activateWindow();
}

} // namespace dwellkey
