// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace dwellkey {

/// Keeps its parent at the leading end of the parent's own parent, with this width and all of its
/// height. Interface files can hold only widgets; this one is never seen.
class WidthConstraint final : public QWidget {
    Q_OBJECT

public:
    explicit WidthConstraint(QWidget* parent);

    /// Device-independent pixels. Any value is kept; one that is negative or no number is drawn
    /// as 0.
    [[nodiscard]] double constant() const { return constant_; }
    void setConstant(double constant);

private:
    double constant_ = 0.0;
};

} // namespace dwellkey
