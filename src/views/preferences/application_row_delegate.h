// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

namespace dwellkey {

/// A row for an application: its icon (Qt::DecorationRole), its name (Qt::DisplayRole), and under
/// the name a smaller gray line where there is one (`secondLineRole`).
class ApplicationRowDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    static constexpr int secondLineRole = Qt::UserRole + 1;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
};

} // namespace dwellkey
