// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"
#include "settings/preferences_view_model.h"

#include <QList>
#include <QListView>
#include <QUrl>
#include <unordered_set>

namespace dwellkey {

using SelectedApps = std::unordered_set<AppInfo>;

/// The applications of the scope, in the order of adding. It shows and selects; what is dropped on
/// it, or to be removed, it only tells.
class AppsListView final : public QListView {
    Q_OBJECT

public:
    /// Both must outlive the view.
    AppsListView(PreferencesViewModel& model, const Platform& platform, QWidget* parent = nullptr);

    /// Follows the model, and reads the applications' names anew. Rows of records that are still
    /// listed stay selected.
    void refresh();

    /// Whole records, as they were when they were selected.
    [[nodiscard]] const SelectedApps& selectedApps() const { return selectedApps_; }
    void clearSelectedApps();

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void selectedAppsChanged();
    void removalRequested();
    void locationsDropped(const QList<QUrl>& locations);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

private:
    class Rows;

    PreferencesViewModel& model_;
    const Platform& platform_;
    Rows* rows_;
    SelectedApps selectedApps_;
    bool isRefreshing_ = false;
};

} // namespace dwellkey
