// SPDX-License-Identifier: MIT
#include "views/common/icons.h"

#include <QApplication>
#include <QFileInfo>
#include <QStyle>

namespace dwellkey {

QIcon loadIcon(const Image& image) {
    if (image.name == applicationIconName) {
        return QIcon(QStringLiteral(":/icons/DwellkeyIcon.svg"));
    }
    const QString name = QString::fromStdString(image.name);
    if (name.startsWith(u'/')) {
        if (QFileInfo(name).isFile()) {
            return QIcon(name);
        }
    } else if (QIcon icon = QIcon::fromTheme(name); !icon.isNull()) {
        return icon;
    }
    return QIcon::fromTheme(QStringLiteral("application-x-executable"),
                            QApplication::style()->standardIcon(QStyle::SP_FileIcon));
}

} // namespace dwellkey
