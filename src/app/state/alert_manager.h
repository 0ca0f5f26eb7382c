// SPDX-License-Identifier: MIT
// How a model asks the user interface for an alert. std only.
#pragma once

#include "support/observable_object.h"

#include <string>

namespace dwellkey {

/// The alert that the presenting view shows. Models only ever call `showAlert`; the view puts
/// `isAlertPresented` back to false when the user dismissed it.
class AlertManager : public ObservableObject {
public:
    /// The process's instance, made on first use and never destroyed.
    static AlertManager& shared();

    AlertManager() = default;

    Published<std::string> title{*this, ""};
    Published<std::string> message{*this, ""};
    Published<bool> isAlertPresented{*this, false};

    /// The flag is set last: whoever observes it finds both texts in place. An alert that is
    /// still up takes the new texts.
    void showAlert(std::string newTitle, std::string newMessage);
};

} // namespace dwellkey
