// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/launch.h"

#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>
#include <functional>
#include <utility>

namespace dwellkey {

/// What the bus sees of `QtApplicationObject`, which is for everybody else.
class QtExportedApplication final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit QtExportedApplication(std::function<void(const Launch&)> activated)
        : activated_(std::move(activated)) {}

public Q_SLOTS: // as the interface spells them
    Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
    /// We open no files: the same as Activate.
    Q_SCRIPTABLE void Open(const QStringList& addresses, const QVariantMap& platformData);
    /// There are no actions: an error to the caller.
    Q_SCRIPTABLE void ActivateAction(const QString& action, const QVariantList& parameter,
                                     const QVariantMap& platformData);

private:
    std::function<void(const Launch&)> activated_;
};

} // namespace dwellkey
