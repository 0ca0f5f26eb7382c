// SPDX-License-Identifier: MIT
// The desktops and languages that windows are drawn for.
#pragma once

#include <QString>
#include <QStringList>

#include <memory>

class QApplication;

namespace dwellkey {

QStringList lookNames();

/// To be called before there is an application: its scale is fixed at the start.
void prepareLook(const QString& name);

/// Gives the application palette, icons, font and language.
void applyLook(const QString& name, QApplication& application);

} // namespace dwellkey
