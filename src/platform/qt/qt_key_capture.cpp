// SPDX-License-Identifier: MIT
#include "platform/qt/qt_key_capture.h"

#include "platform/linux/evdev_key_codes.h"

#include <QGuiApplication>
#include <algorithm>
#include <xcb/xcb.h>

namespace dwellkey {

namespace {

/// What was asked of the display goes there now and not at the end of the turn.
void sendRequests() {
    if (const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>()) {
        xcb_flush(x11->connection());
    }
}

} // namespace

QtKeyCapture::~QtKeyCapture() {
    end();
}

bool QtKeyCapture::begin(std::uint32_t nativeWindow) {
    end();
    const auto windows = QGuiApplication::topLevelWindows();
    const auto found = std::ranges::find_if(windows, [&](const QWindow* window) {
        return window->handle() != nullptr && window->winId() == nativeWindow;
    });
    if (found == windows.end() || !(*found)->setKeyboardGrabEnabled(true)) {
        return false;
    }
    window_ = *found;
    return true;
}

void QtKeyCapture::end() {
    if (window_ != nullptr) {
        window_->setKeyboardGrabEnabled(false);
        window_.clear();
        sendRequests(); // the next key is somebody else's
    }
}

std::optional<std::uint32_t> QtKeyCapture::keyCode(std::uint32_t nativeScanCode) const {
    return nativeScanCode < xkbKeycodeOffset ? std::nullopt
                                             : virtualKeyCode(nativeScanCode - xkbKeycodeOffset);
}

} // namespace dwellkey
