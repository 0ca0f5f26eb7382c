// SPDX-License-Identifier: MIT
#pragma once

#include <QListView>
#include <QMargins>

namespace dwellkey {

/// A table of one column, without header or grid.
class TableView final : public QListView {
    Q_OBJECT

public:
    explicit TableView(QWidget* parent);

    /// The space between the rows and the view's edges, in device-independent pixels.
    void setContentInsets(const QMargins& insets) { setViewportMargins(insets); }
    [[nodiscard]] QMargins contentInsets() const { return viewportMargins(); }
};

} // namespace dwellkey
