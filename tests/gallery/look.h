// SPDX-License-Identifier: MIT
// The desktops and languages that windows are drawn for.
#pragma once

#include <QString>
#include <QStringList>

namespace dwellkey {

QStringList lookNames();

/// To be called before there is an application: its scale is fixed at the start.
void prepareLook(const QString& name);

/// Gives the application its palette, icons, font and language. It must exist by now.
void applyLook(const QString& name);

} // namespace dwellkey
