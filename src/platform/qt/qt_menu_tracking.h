// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard.h"

#include <QObject>
#include <set>

namespace dwellkey {

/// Watches this program's own menus: the first one that opens begins tracking, the last one that
/// closes ends it. The event filter is installed only while somebody observes.
class QtMenuTracking final : public QObject, public MenuTracking {
public:
    QtMenuTracking() = default;

    [[nodiscard]] Subscription observe(MenuTrackingNotification notification,
                                       std::function<void()> block) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Signal<> didBegin_;
    Signal<> didEnd_;
    int observers_ = 0;
    std::set<const QObject*> openMenus_;
};

} // namespace dwellkey
