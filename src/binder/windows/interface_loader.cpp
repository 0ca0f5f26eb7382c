// SPDX-License-Identifier: MIT
#include "binder/windows/interface_loader.h"

#include "binder/windows/array_controller.h"
#include "binder/windows/progress_bar.h"
#include "binder/windows/shortcut_view.h"
#include "binder/windows/table_view.h"
#include "binder/windows/width_constraint.h"
#include "views/common/secondary_label.h"

#include <QString>

namespace dwellkey {
namespace {
InterfaceLoader* installed = nullptr;
} // namespace

InterfaceLoader* InterfaceLoader::shared() {
    return installed;
}

void InterfaceLoader::install(InterfaceLoader* loader) {
    installed = loader;
}

QWidget* makeInterfaceWidget(const QString& className, QWidget* parent) {
    if (className == QLatin1String("ArrayController")) {
        return new ArrayController(parent);
    }
    if (className == QLatin1String("ProgressBar")) {
        return new ProgressBar(ProgressBar::FromInterfaceFile{}, parent);
    }
    if (className == QLatin1String("SecondaryLabel")) {
        return new SecondaryLabel(QString(), regularFont, parent);
    }
    if (className == QLatin1String("ShortcutView")) {
        return new ShortcutView(parent);
    }
    if (className == QLatin1String("TableView")) {
        return new TableView(parent);
    }
    if (className == QLatin1String("WidthConstraint")) {
        return new WidthConstraint(parent);
    }
    return nullptr;
}

} // namespace dwellkey
