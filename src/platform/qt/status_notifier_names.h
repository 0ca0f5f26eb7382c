// SPDX-License-Identifier: MIT
// Who is called what between programs with an item and the bars that show it.
#pragma once

#include <QString>

namespace dwellkey::status_notifier {

inline const QString watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
inline const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");
inline const QString itemPath = QStringLiteral("/StatusNotifierItem");
inline const QString menuPath = QStringLiteral("/MenuBar");

} // namespace dwellkey::status_notifier
