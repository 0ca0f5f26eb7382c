// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace dwellkey {

/// Small gray text that stays readable in every palette.
class CaptionLabel final : public QLabel {
    Q_OBJECT

public:
    explicit CaptionLabel(QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;

private:
    void follow();
};

} // namespace dwellkey
