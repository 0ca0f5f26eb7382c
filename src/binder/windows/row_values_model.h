// SPDX-License-Identifier: MIT
#pragma once

#include "binder/windows/array_controller.h"
#include "binder/windows/preferences_window_controller.h"

#include <QAbstractTableModel>
#include <functional>

namespace dwellkey {

/// The rows of an array controller as a table view wants them: one column with picture and name.
class RowValuesModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    using ValueOfRow = std::function<PreferencesWindowController::RowValue(std::size_t row)>;

    RowValuesModel(const ArrayController& controller, ValueOfRow valueOfRow, QObject* parent);

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    const ArrayController& controller_;
    ValueOfRow valueOfRow_;
    Subscription contentChange_;
};

} // namespace dwellkey
