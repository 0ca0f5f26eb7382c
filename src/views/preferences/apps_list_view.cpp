// SPDX-License-Identifier: MIT
#include "views/preferences/apps_list_view.h"

#include "views/common/icons.h"
#include "views/preferences/application_row_delegate.h"

#include <QAbstractListModel>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <algorithm>
#include <utility>
#include <vector>

namespace dwellkey {
namespace {

constexpr int minimumListHeight = 140;

void acceptCopy(QDropEvent& event) {
    if (event.mimeData()->hasUrls()) {
        event.setDropAction(Qt::CopyAction);
        event.accept();
    }
}

} // namespace

/// A copy of the list, as it was at the last refresh.
class AppsListView::Rows final : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    /// False when nothing that is shown differs.
    bool assign(const std::vector<AppInfo>& apps, const BundleReader& bundleReader) {
        std::vector<QString> names;
        names.reserve(apps.size());
        for (const AppInfo& app : apps) {
            names.push_back(
                QString::fromStdString(bundleReader.localizedName(app.url()).value_or(app.name())));
        }
        if (apps == apps_ && names == names_) {
            return false;
        }
        beginResetModel();
        apps_ = apps;
        names_ = std::move(names);
        endResetModel();
        return true;
    }

    [[nodiscard]] const AppInfo& app(const QModelIndex& index) const {
        return apps_.at(static_cast<std::size_t>(index.row()));
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(apps_.size());
    }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        const AppInfo& shown = app(index);
        switch (role) {
        case Qt::DisplayRole:
            return names_.at(static_cast<std::size_t>(index.row()));
        case Qt::DecorationRole:
            return loadIcon(shown.icon());
        case Qt::AccessibleDescriptionRole:
        case ApplicationRowDelegate::secondLineRole:
            return shown.existsOnDisk ? QString() : AppsListView::tr("App not found on disk");
        default:
            return {};
        }
    }

private:
    std::vector<AppInfo> apps_;
    std::vector<QString> names_;
};

AppsListView::AppsListView(PreferencesViewModel& model, const Platform& platform, QWidget* parent)
    : QListView(parent), model_(model), platform_(platform), rows_(new Rows(this)) {
    setModel(rows_);
    setItemDelegate(new ApplicationRowDelegate(this));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    setAcceptDrops(true);
    setMinimumHeight(minimumListHeight);
    setAccessibleName(tr("Applications"));
    refresh();
}

void AppsListView::refresh() {
    const SelectedApps wereSelected = selectedApps_;
    isRefreshing_ = true; // the selection that a reset takes away is not the user's doing
    const bool changed = rows_->assign(model_.apps(), platform_.bundleReader);
    if (changed) {
        for (int row = 0; row < rows_->rowCount(); ++row) {
            const QModelIndex index = rows_->index(row);
            const bool isSelected = std::ranges::any_of(wereSelected, [&](const AppInfo& app) {
                return app.id() == rows_->app(index).id();
            });
            if (isSelected) {
                selectionModel()->select(index, QItemSelectionModel::Select);
            }
        }
    }
    isRefreshing_ = false;
    if (changed && !selectionModel()->hasSelection()) {
        clearSelectedApps(); // what was selected is not listed any more
    }
}

void AppsListView::clearSelectedApps() {
    clearSelection();
    if (!selectedApps_.empty()) {
        selectedApps_.clear();
        Q_EMIT selectedAppsChanged();
    }
}

QSize AppsListView::sizeHint() const {
    return {QListView::sizeHint().width(), minimumListHeight};
}

void AppsListView::selectionChanged(const QItemSelection& selected,
                                    const QItemSelection& deselected) {
    QListView::selectionChanged(selected, deselected);
    if (isRefreshing_) {
        return;
    }
    selectedApps_.clear();
    for (const QModelIndex& index : selectionModel()->selectedIndexes()) {
        selectedApps_.insert(rows_->app(index));
    }
    Q_EMIT selectedAppsChanged();
}

void AppsListView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Delete)) {
        Q_EMIT removalRequested();
        return;
    }
    QListView::keyPressEvent(event);
}

// Never a move, not even before the drop: a source holds on to the last that it was told, and then
// deletes what it offered.
void AppsListView::dragEnterEvent(QDragEnterEvent* event) {
    acceptCopy(*event);
}

void AppsListView::dragMoveEvent(QDragMoveEvent* event) {
    acceptCopy(*event);
}

void AppsListView::dropEvent(QDropEvent* event) {
    acceptCopy(*event);
    Q_EMIT locationsDropped(event->mimeData()->urls());
}

} // namespace dwellkey
