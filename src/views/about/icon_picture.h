// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image.h"

#include <QIcon>
#include <QWidget>

namespace dwellkey {

/// A picture in a square frame, as large as fits with its proportions kept, sharp on every screen.
class IconPicture final : public QWidget {
public:
    /// `side` in device-independent pixels.
    IconPicture(const Image& image, int side, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QIcon icon_;
};

} // namespace dwellkey
