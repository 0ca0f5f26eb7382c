// SPDX-License-Identifier: MIT
// Our own small drawings, in the colour of the text beside them.
#pragma once

#include "keycommands/recorder/template_image.h"

#include <QIcon>
#include <QWidget>

namespace dwellkey {

[[nodiscard]] TemplateImage makeTortoise();
[[nodiscard]] TemplateImage makeHare();
[[nodiscard]] TemplateImage makePlus();
[[nodiscard]] TemplateImage makeMinus();

/// Shows a drawing in the colour of the window's text.
class SymbolView final : public QWidget {
public:
    SymbolView(TemplateImage image, QSize size, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override { return size_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    TemplateImage image_;
    QSize size_;
};

/// A button that shows a drawing, gray while it is disabled.
QIcon symbolIcon(const TemplateImage& image, const QPalette& palette);

} // namespace dwellkey
