// SPDX-License-Identifier: MIT
#pragma once

#include "keycommands/key_recording.h"
#include "keycommands/recorder/bezel_style.h"
#include "keycommands/recorder/template_image.h"

#include <QAbstractButton>

namespace dwellkey {

/// One segment of the recorder: a button on its part of the control's bezel. Reached with Tab,
/// pressed with Space or the mouse.
class KeyRecorderSegment final : public QAbstractButton {
    Q_OBJECT

public:
    explicit KeyRecorderSegment(QWidget& control);

    void setBezelStyle(BezelStyle style);
    /// Looks held down until it is deselected.
    void setSelected(bool selected);

    /// What it shows: the one set last. The image is the caller's.
    void showText(const QString& text);
    void showStyledText(const QString& markup);
    void showImage(const TemplateImage& image);

    /// Of all texts that it may come to show, in points.
    void setTextWidth(int width);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintContent(QPainter& painter);

    QWidget& control_;
    BezelStyle bezelStyle_ = BezelStyle::rounded;
    bool isSelected_ = false;
    QString styledText_;
    const TemplateImage* image_ = nullptr;
    int textWidth_ = 0;
};

/// How high a recorder is in this font and style: at least 24 points.
[[nodiscard]] int recorderHeight(const QWidget& widget);

} // namespace dwellkey
