// SPDX-License-Identifier: MIT
#pragma once

#include "platform/key_capture.h"

#include <QPointer>
#include <QWindow>

namespace dwellkey {

/// The toolkit's own grab, so that the keys arrive as the window's ordinary events. On an X server
/// the window of a grab that already has the focus keeps it without a notice.
class QtKeyCapture final : public KeyCapture {
public:
    QtKeyCapture() = default;
    ~QtKeyCapture() override;

    bool begin(std::uint32_t nativeWindow) override;
    void end() override;
    [[nodiscard]] std::optional<std::uint32_t> keyCode(std::uint32_t nativeScanCode) const override;

private:
    QPointer<QWindow> window_; // that has the keyboard
};

} // namespace dwellkey
