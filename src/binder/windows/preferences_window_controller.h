// SPDX-License-Identifier: MIT
#pragma once

#include "binder/windows/array_controller.h"
#include "binder/windows/open_panel.h"
#include "binder/windows/shortcut_view.h"
#include "binder/windows/table_view.h"
#include "binder/windows/window_controller.h"
#include "platform/image.h"

#include <cstddef>
#include <string>

namespace dwellkey {

/// The preferences of the shortcut-binder path: edits the settings that its handler reads.
class PreferencesWindowController final : public WindowController {
public:
    /// The name of the class and of its interface file.
    static constexpr const char* nibName = "PreferencesWindowController";

    /// One row of the table.
    struct RowValue {
        std::string name;
        Image image;
    };

    explicit PreferencesWindowController(Platform& platform, OpenPanelRunner runPanel = runModal);

    Outlet<ShortcutView> quitView{nibName, "quitView"};
    Outlet<ShortcutView> windowView{nibName, "windowView"};
    /// The paths of the listed applications.
    Outlet<ArrayController> arrayController{nibName, "arrayController"};
    Outlet<TableView> tableView{nibName, "tableView"};

    /// Lets the user choose an application and appends its path, also when it is listed already.
    void addApplication();
    /// Removes the selected ones.
    void removeApplication() const;

    /// The row must be in the table: any other ends the process. All columns show the same.
    [[nodiscard]] RowValue objectValueForTableColumn(int column, std::size_t row) const;

protected:
    void connectOutlets() override;
    [[nodiscard]] Actions actions() override;
    void windowDidLoad() override;

private:
    void connectTable();

    OpenPanelRunner runPanel_;
    Subscription selectionChange_;
};

} // namespace dwellkey
