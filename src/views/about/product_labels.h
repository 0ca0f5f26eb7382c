// SPDX-License-Identifier: MIT
// The product's lines of text, for whichever window shows them.
#pragma once

#include "views/common/secondary_label.h"

#include <QLabel>

namespace dwellkey {

inline constexpr const char* productName = "Dwellkey";

/// One line that is never broken, in the gray of explanations.
class GrayLine : public SecondaryLabel {
    Q_OBJECT

public:
    GrayLine(const QString& text, SystemFont size, QFont::Weight weight, QWidget* parent = nullptr);
};

/// "Version " and the version.
class DwellkeyVersion final : public GrayLine {
    Q_OBJECT

public:
    explicit DwellkeyVersion(QWidget* parent = nullptr);
};

/// The same in all languages; the year is that of the first time that it was needed.
class DwellkeyCopyright final : public QLabel {
    Q_OBJECT

public:
    explicit DwellkeyCopyright(QWidget* parent = nullptr);
};

} // namespace dwellkey
