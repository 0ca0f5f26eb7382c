// SPDX-License-Identifier: MIT
#include "keycommands/recorder/key_recorder_segment.h"

#include "keycommands/recorder/segment_bezel.h"

#include <QPainter>
#include <QStaticText>
#include <QStyle>
#include <QStyleOptionButton>
#include <algorithm>

namespace dwellkey {
namespace {

constexpr QSize smallestControl{140, 24};
constexpr int contentInset = 3;
constexpr int textMargin = 10; // on either side

} // namespace

int recorderHeight(const QWidget& widget) {
    QStyleOptionButton option;
    option.initFrom(&widget);
    const QSize text(0, widget.fontMetrics().height());
    const int button =
        widget.style()->sizeFromContents(QStyle::CT_PushButton, &option, text, &widget).height();
    return std::max(smallestControl.height(), button);
}

KeyRecorderSegment::KeyRecorderSegment(QWidget& control)
    : QAbstractButton(&control), control_(control) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void KeyRecorderSegment::setBezelStyle(BezelStyle style) {
    bezelStyle_ = style;
    update();
}

void KeyRecorderSegment::setSelected(bool selected) {
    isSelected_ = selected;
    update();
}

void KeyRecorderSegment::showText(const QString& text) {
    setText(text);
    styledText_.clear();
    image_ = nullptr;
    update();
}

void KeyRecorderSegment::showStyledText(const QString& markup) {
    setText({});
    styledText_ = markup;
    image_ = nullptr;
    update();
}

void KeyRecorderSegment::showImage(const TemplateImage& image) {
    setText({});
    image_ = &image;
    update();
}

void KeyRecorderSegment::setTextWidth(int width) {
    if (textWidth_ != width) {
        textWidth_ = width;
        updateGeometry();
    }
}

QSize KeyRecorderSegment::sizeHint() const {
    const int height = recorderHeight(*this);
    const int text = textWidth_ + 2 * textMargin;
    return image_ != nullptr ? QSize(height, height)
                             : QSize(std::max(smallestControl.width() - height, text), height);
}

void KeyRecorderSegment::paintEvent(QPaintEvent* /*event*/) {
    SegmentBezel bezel;
    bezel.style = bezelStyle_;
    bezel.control = control_.rect().translated(-pos());
    bezel.segment = rect();
    QStyleOptionButton& option = bezel.option;
    option.initFrom(this);
    option.state.setFlag(QStyle::State_Sunken, isDown());
    option.state.setFlag(QStyle::State_On, isSelected_);
    option.state.setFlag(QStyle::State_Raised, !isDown() && !isSelected_);
    QPainter painter(this);
    bezel.paint(painter, *this);
    paintContent(painter);
    bezel.paintFocus(painter, *this);
}

void KeyRecorderSegment::paintContent(QPainter& painter) {
    const auto role = bezelStyle_ == BezelStyle::flat ? QPalette::WindowText : QPalette::ButtonText;
    const QRect content = rect().adjusted(contentInset, contentInset, -contentInset, -contentInset);
    if (image_ != nullptr) {
        image_->paint(painter, content, palette().color(role));
    } else if (!styledText_.isEmpty()) {
        painter.setPen(palette().color(role));
        QStaticText styled(styledText_);
        styled.setTextFormat(Qt::RichText);
        styled.prepare({}, font());
        const QSizeF size = styled.size();
        painter.drawStaticText(
            QRectF(content).center() - QPointF(size.width() / 2, size.height() / 2), styled);
    } else {
        painter.setLayoutDirection(Qt::LeftToRight); // the order of the symbols has a meaning
        style()->drawItemText(&painter, content, Qt::AlignCenter, palette(), isEnabled(), text(),
                              role);
    }
}

} // namespace dwellkey
