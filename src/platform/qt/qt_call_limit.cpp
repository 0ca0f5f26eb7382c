// SPDX-License-Identifier: MIT
#include "platform/qt/qt_call_limit.h"

#include <QEvent>

namespace dwellkey {
namespace {

// Several bars that ask for everything at once need a few dozen calls. This many take the time of
// two ticks of a hold.
constexpr int callsInAWindow = 200;
constexpr int windowMilliseconds = 100;

} // namespace

bool QtCallLimit::eventFilter(QObject* /*exported*/, QEvent* event) {
    if (event->type() != QEvent::MetaCall) { // as which every call of the bus arrives
        return false;
    }
    if (!window_.isValid() || window_.hasExpired(windowMilliseconds)) {
        window_.start();
        calls_ = 0;
    }
    return ++calls_ > callsInAWindow; // unheard: the caller gets an error
}

} // namespace dwellkey
