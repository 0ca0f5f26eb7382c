// SPDX-License-Identifier: MIT
// Controllers of what interface files describe.
#pragma once

#include "binder/outlet.h"
#include "platform/platform.h"
#include "support/signal.h"

#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace dwellkey {

/// Loads one interface file on first use: its outlets are connected to the objects of their names,
/// the controls that say so are bound to their settings, and each button with the property
/// "action" runs the action of that name. Making a controller costs nothing and loads nothing.
class InterfaceController {
public:
    InterfaceController(std::string nibName, Platform& platform);
    InterfaceController(const InterfaceController&) = delete;
    InterfaceController& operator=(const InterfaceController&) = delete;
    virtual ~InterfaceController();

protected:
    using Actions = std::map<std::string, std::function<void()>, std::less<>>;

    /// The outermost widget. Ends the process when the file cannot be loaded.
    QWidget& loaded();

    virtual void connectOutlets() {}
    [[nodiscard]] virtual Actions actions() { return {}; }
    virtual void didLoad() {}

    /// To the object of the outlet's name and class; unconnected where there is none.
    template <typename Object>
    void connectOutlet(Outlet<Object>& outlet) {
        const auto name =
            QString::fromUtf8(outlet.name().data(), static_cast<qsizetype>(outlet.name().size()));
        outlet.connect(root_->findChild<Object*>(name));
    }

    [[nodiscard]] Platform& platform() const { return platform_; }

private:
    void connectActions();

    const std::string nibName_;
    Platform& platform_;
    std::unique_ptr<QWidget> root_;
    std::vector<Subscription> bindings_;
};

/// Of a window.
class WindowController : public InterfaceController {
public:
    using InterfaceController::InterfaceController;

    QWidget& window() { return loaded(); }
    /// Shows the window in the middle of its screen, or brings it forward when it is open.
    void showWindow();
    void close() { window().close(); }

protected:
    void didLoad() final;
    virtual void windowDidLoad() {}
};

/// Of a view inside a window of somebody else.
class ViewController : public InterfaceController {
public:
    using InterfaceController::InterfaceController;

    QWidget& view() { return loaded(); }

protected:
    void didLoad() final { viewDidLoad(); }
    virtual void viewDidLoad() {}
};

} // namespace dwellkey
