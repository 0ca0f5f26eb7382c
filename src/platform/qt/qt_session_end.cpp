// SPDX-License-Identifier: MIT
#include "platform/qt/qt_session_end.h"

#include <QGuiApplication>
#include <QSessionManager>
#include <utility>

namespace dwellkey {

QtSessionEnd::QtSessionEnd(std::function<void()> save) {
    const auto takePart = [save = std::move(save)](QSessionManager& session) {
        session.setRestartHint(QSessionManager::RestartNever);
        save();
    };
    // Direct: the session manager waits for the return.
    QObject::connect(qGuiApp, &QGuiApplication::commitDataRequest, &context_, takePart,
                     Qt::DirectConnection);
    QObject::connect(qGuiApp, &QGuiApplication::saveStateRequest, &context_, takePart,
                     Qt::DirectConnection);
}

} // namespace dwellkey
