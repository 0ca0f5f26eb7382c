// SPDX-License-Identifier: MIT
#include "platform/qt/qt_menu_tracking.h"

#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <memory>
#include <utility>

namespace dwellkey {

Subscription QtMenuTracking::observe(MenuTrackingNotification notification,
                                     std::function<void()> block) {
    const Signal<>& signal =
        notification == MenuTrackingNotification::didBegin ? didBegin_ : didEnd_;
    if (observers_++ == 0) {
        qApp->installEventFilter(this);
    }
    auto inner = std::make_shared<Subscription>(signal.subscribe(std::move(block)));
    return Subscription([this, inner] {
        inner->cancel();
        if (--observers_ == 0 && qApp != nullptr) {
            qApp->removeEventFilter(this);
            openMenus_.clear(); // whether they close goes unseen now
        }
    });
}

bool QtMenuTracking::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show && qobject_cast<QMenu*>(watched) != nullptr) {
        if (openMenus_.insert(watched).second && openMenus_.size() == 1) {
            didBegin_.emit();
        }
    } else if (event->type() == QEvent::Hide) { // sent by the destructor too, to what is left
        if (openMenus_.erase(watched) > 0 && openMenus_.empty()) {
            didEnd_.emit();
        }
    }
    return false;
}

} // namespace dwellkey
