// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace dwellkey {

/// The filling bar: a rounded strip in the desktop's accent colour at the top of the widget,
/// anchored at the left. There is no track; what is not filled shows the backdrop.
class TimerProgressBar final : public QWidget {
public:
    explicit TimerProgressBar(QWidget* parent);

    /// 0 is empty, 1 is full. Repaints only what changes.
    void setProgress(double progress);
    [[nodiscard]] double progress() const { return progress_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QRectF fill() const;

    double progress_ = 0.0;
};

} // namespace dwellkey
