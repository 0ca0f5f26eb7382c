// SPDX-License-Identifier: MIT
#include "binder/windows/preferences_window_controller.h"

#include "binder/listed_application.h"
#include "binder/windows/row_values_model.h"

#include <QAbstractButton>
#include <QItemSelectionModel>
#include <cstdlib>
#include <utility>

namespace dwellkey {
namespace {
constexpr QMargins listInsets(0, 0, 0, 20);
} // namespace

PreferencesWindowController::PreferencesWindowController(Platform& platform,
                                                         OpenPanelRunner runPanel)
    : WindowController(nibName, platform), runPanel_(std::move(runPanel)) {}

void PreferencesWindowController::connectOutlets() {
    connectOutlet(quitView);
    connectOutlet(windowView);
    connectOutlet(arrayController);
    connectOutlet(tableView);
}

InterfaceController::Actions PreferencesWindowController::actions() {
    return {{"addApplication", [this] { addApplication(); }},
            {"removeApplication", [this] { removeApplication(); }}};
}

void PreferencesWindowController::windowDidLoad() {
    quitView->setAssociatedUserDefaultsKey("quitShortcut", platform());
    windowView->setAssociatedUserDefaultsKey("windowShortcut", platform());
    tableView->setContentInsets(listInsets);
    connectTable();
}

/// What an interface file cannot say: the rows come from here, and the array controller's selection
/// is the table's.
void PreferencesWindowController::connectTable() {
    TableView& table = *tableView;
    ArrayController& list = *arrayController;
    auto* rows = new RowValuesModel(
        list, [this](std::size_t row) { return objectValueForTableColumn(0, row); }, &table);
    table.setModel(rows);
    QObject::connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, &list,
                     [&table, &list] {
                         std::vector<std::size_t> indexes;
                         for (const QModelIndex& index : table.selectionModel()->selectedRows()) {
                             indexes.push_back(static_cast<std::size_t>(index.row()));
                         }
                         list.setSelectionIndexes(std::move(indexes));
                     });
    auto* removeButton = window().findChild<QAbstractButton*>(QStringLiteral("removeButton"));
    if (removeButton != nullptr) {
        const auto follow = [removeButton, &list] {
            removeButton->setEnabled(!list.selectionIndexes().empty());
        };
        selectionChange_ = list.selectionDidChange.subscribe(follow);
        follow();
    }
}

void PreferencesWindowController::addApplication() {
    const OpenPanelResult chosen = runPanel_({.allowsMultipleSelection = false,
                                              .canChooseFiles = true,
                                              .canChooseDirectories = false,
                                              .allowedFileTypes = {"desktop"},
                                              .directory = applicationsFolder()},
                                             &window());
    if (chosen.response == ModalResponse::ok && !chosen.urls.empty()) {
        arrayController->addObject(chosen.urls.front().path());
    }
}

void PreferencesWindowController::removeApplication() const {
    arrayController->remove();
}

PreferencesWindowController::RowValue
PreferencesWindowController::objectValueForTableColumn(int /*column*/, std::size_t row) const {
    const auto paths = arrayController->arrangedObjects();
    if (row >= paths.size()) {
        std::abort();
    }
    return {listedApplicationName(paths[row]), platform().workspace.icon(paths[row])};
}

} // namespace dwellkey
