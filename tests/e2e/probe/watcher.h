// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

namespace dwellkey::probe {

/// Reports keys and focus as they arrive, before the toolkit makes something else of them.
class Watcher : public QObject, public QAbstractNativeEventFilter {
public:
    Watcher();

    bool eventFilter(QObject* receiver, QEvent* event) override;
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
};

} // namespace dwellkey::probe
