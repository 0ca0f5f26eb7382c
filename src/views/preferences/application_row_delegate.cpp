// SPDX-License-Identifier: MIT
#include "views/preferences/application_row_delegate.h"

#include "views/common/fonts.h"
#include "views/common/secondary_label.h"

#include <QApplication>
#include <QPainter>
#include <algorithm>

namespace dwellkey {
namespace {

constexpr int iconSide = 26;
constexpr int padding = 4;
constexpr int gap = 8; // between icon and name

struct Lines {
    QRect icon;
    QRect name;
    QRect second;
};

Lines layOut(const QStyleOptionViewItem& option, bool hasSecond) {
    const QRect inner = option.rect.adjusted(padding, padding, -padding, -padding);
    const QRect icon(inner.left(), inner.top() + (inner.height() - iconSide) / 2, iconSide,
                     iconSide);
    const int nameHeight = QFontMetrics(fontFor(regularFont)).height();
    const int secondHeight = hasSecond ? QFontMetrics(fontFor(smallFont)).height() : 0;
    const int top = inner.top() + (inner.height() - nameHeight - secondHeight) / 2;
    const int left = icon.right() + 1 + gap;
    const int width = inner.right() + 1 - left;
    const auto mirrored = [&](const QRect& logical) {
        return QStyle::visualRect(option.direction, option.rect, logical);
    };
    return {mirrored(icon), mirrored({left, top, width, nameHeight}),
            mirrored({left, top + nameHeight, width, secondHeight})};
}

void drawLine(QPainter& painter, const QRect& line, const QFont& font, const QColor& colour,
              const QString& text, Qt::LayoutDirection direction) {
    painter.setFont(font);
    painter.setPen(colour);
    const auto alignment = QStyle::visualAlignment(direction, Qt::AlignLeft | Qt::AlignVCenter);
    painter.drawText(line, static_cast<int>(alignment) | Qt::TextSingleLine,
                     QFontMetrics(font).elidedText(text, Qt::ElideRight, line.width()));
}

} // namespace

void ApplicationRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const {
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QIcon icon = item.icon;
    const QString name = item.text;
    const QString second = index.data(secondLineRole).toString();
    item.icon = {};
    item.text.clear();
    const QStyle* style = item.widget == nullptr ? QApplication::style() : item.widget->style();
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget); // its background

    painter->save();
    const Lines lines = layOut(item, !second.isEmpty());
    icon.paint(painter, lines.icon);
    const bool isSelected = (item.state & QStyle::State_Selected) != 0;
    const bool isActive = (item.state & QStyle::State_Active) != 0;
    const auto group = isActive ? QPalette::Active : QPalette::Inactive;
    const QColor text =
        item.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text);
    QPalette around = item.palette;
    around.setColor(QPalette::Active, QPalette::WindowText, text);
    around.setColor(QPalette::Active, QPalette::Window,
                    item.palette.color(group, isSelected ? QPalette::Highlight : QPalette::Base));
    drawLine(*painter, lines.name, fontFor(regularFont), text, name, item.direction);
    drawLine(*painter, lines.second, fontFor(smallFont), secondaryTextColour(around), second,
             item.direction);
    painter->restore();
}

QSize ApplicationRowDelegate::sizeHint(const QStyleOptionViewItem& /*option*/,
                                       const QModelIndex& index) const {
    const QFontMetrics nameMetrics(fontFor(regularFont));
    const QFontMetrics secondMetrics(fontFor(smallFont));
    const QString second = index.data(secondLineRole).toString();
    const int text = std::max(nameMetrics.horizontalAdvance(index.data().toString()),
                              secondMetrics.horizontalAdvance(second));
    const int lines = nameMetrics.height() + secondMetrics.height();
    return {2 * padding + iconSide + gap + text, 2 * padding + std::max(iconSide, lines)};
}

} // namespace dwellkey
