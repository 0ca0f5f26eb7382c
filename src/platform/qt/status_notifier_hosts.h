// SPDX-License-Identifier: MIT
#pragma once

#include "support/signal.h"

#include <QDBusMessage>
#include <QObject>

#include <optional>

class QDBusServiceWatcher;
class QDBusPendingCallWatcher;

namespace dwellkey {

/// Follows the session's watcher of items (org.kde.StatusNotifierWatcher) and whether any bar shows
/// the items that it knows. Never waits for an answer.
class StatusNotifierHosts final : public QObject {
    Q_OBJECT

public:
    /// Connects to the session bus; once.
    void start();

    /// True also before it is known.
    [[nodiscard]] bool isHosted() const { return isHosted_.value_or(true); }

    Signal<> hostingDidChange;
    /// A watcher has taken its place, perhaps after another one. It knows no items.
    Signal<> watcherDidAppear;

private Q_SLOTS:
    void watcherChanged(const QString& service, const QString& oldOwner, const QString& newOwner);
    void ask();

private:
    void answered(const QDBusMessage& reply);
    void setHosted(bool isHosted);

    std::optional<bool> isHosted_;
    QDBusPendingCallWatcher* question_ = nullptr; // a child; the one whose answer counts
};

} // namespace dwellkey
