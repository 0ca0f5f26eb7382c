// SPDX-License-Identifier: MIT
#include "binder/windows/table_view.h"

namespace dwellkey {
namespace {
constexpr QSize iconExtent(26, 26);
} // namespace

TableView::TableView(QWidget* parent) : QListView(parent) {
    setIconSize(iconExtent);
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setBackgroundRole(QPalette::Base); // the insets belong to the list
    setAutoFillBackground(true);
}

} // namespace dwellkey
