// SPDX-License-Identifier: MIT
#include "app/state/alert_manager.h"

#include <utility>

namespace dwellkey {

AlertManager& AlertManager::shared() {
    static auto* const instance = new AlertManager;
    return *instance;
}

void AlertManager::showAlert(std::string newTitle, std::string newMessage) {
    title = std::move(newTitle);
    message = std::move(newMessage);
    isAlertPresented = true;
}

} // namespace dwellkey
