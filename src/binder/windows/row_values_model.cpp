// SPDX-License-Identifier: MIT
#include "binder/windows/row_values_model.h"

#include "views/common/icons.h"

#include <QSize>
#include <utility>

namespace dwellkey {
namespace {
constexpr int rowHeight = 30;
} // namespace

RowValuesModel::RowValuesModel(const ArrayController& controller, ValueOfRow valueOfRow,
                               QObject* parent)
    : QAbstractTableModel(parent), controller_(controller), valueOfRow_(std::move(valueOfRow)),
      contentChange_(controller.contentDidChange.subscribe([this] {
          beginResetModel();
          endResetModel();
      })) {}

int RowValuesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(controller_.arrangedObjects().size());
}

int RowValuesModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 1;
}

QVariant RowValuesModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const auto row = static_cast<std::size_t>(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return QString::fromStdString(valueOfRow_(row).name);
    case Qt::DecorationRole:
        return loadIcon(valueOfRow_(row).image);
    case Qt::ToolTipRole:
        return QString::fromStdString(controller_.arrangedObjects().at(row));
    case Qt::SizeHintRole:
        return QSize(0, rowHeight);
    default:
        return {};
    }
}

} // namespace dwellkey
