// SPDX-License-Identifier: MIT
// The probe's report: one JSON object a line on standard output.
#pragma once

#include <QJsonObject>
#include <QString>

namespace dwellkey::probe {

/// Writes {"event": <kind>, "time": <CLOCK_MONOTONIC in microseconds>, <details>} at once.
void report(const QString& kind, QJsonObject details = {});

} // namespace dwellkey::probe
