// SPDX-License-Identifier: MIT
#pragma once

#include "app/state/product_constants.h"

#include <QLabel>

namespace dwellkey {

/// Text that explains: in small gray letters, on as many lines as it needs.
class SecondaryLabel : public QLabel {
    Q_OBJECT

public:
    explicit SecondaryLabel(const QString& text, SystemFont size = regularFont,
                            QWidget* parent = nullptr, QFont::Weight weight = QFont::Normal);

protected:
    void changeEvent(QEvent* event) override;

private:
    void updateColour();

    SystemFont size_;
    QFont::Weight weight_;
};

/// Gray on this palette's windows: between the colours of text and window, and readable also where
/// the user asked for high contrast.
QColor secondaryTextColour(const QPalette& palette);

} // namespace dwellkey
