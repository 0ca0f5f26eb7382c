// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QObject>

namespace dwellkey {

/// Refuses the calls from the bus that come faster than any bar or launcher makes them. The loop
/// carries out all that waits before it looks at the keys and the time again; whoever calls without
/// end would keep it from a hold for as long. Install it as an event filter on what is exported.
class QtCallLimit final : public QObject {
public:
    bool eventFilter(QObject* exported, QEvent* event) override;

private:
    QElapsedTimer window_;
    int calls_ = 0; // in the present window of time
};

} // namespace dwellkey
