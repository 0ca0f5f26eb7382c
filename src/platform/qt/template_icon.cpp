// SPDX-License-Identifier: MIT
#include "platform/qt/template_icon.h"

#include <QFileInfo>
#include <QImageReader>

#include <utility>

namespace dwellkey {

TemplateIcon findTemplateIcon(const QString& name,
                              const std::vector<std::string>& resourceFolders) {
    for (const std::string& resources : resourceFolders) {
        const QString folder = QString::fromStdString(resources);
        // Installed, the icons stand beside the folder in their theme; in the source tree in it.
        for (const auto& [themeFolder, place] :
             {std::pair(folder + QStringLiteral("/../icons"),
                        QStringLiteral("/hicolor/symbolic/apps/")),
              std::pair(folder + QStringLiteral("/icons"), QStringLiteral("/"))}) {
            const QFileInfo file(themeFolder + place + name + QStringLiteral(".svg"));
            if (file.isFile()) {
                return {name, QFileInfo(themeFolder).canonicalFilePath(), file.canonicalFilePath()};
            }
        }
    }
    return {name, {}, {}};
}

QImage drawTemplateIcon(const TemplateIcon& icon, int extent) {
    QImageReader reader(icon.file, "svg");
    reader.setScaledSize({extent, extent});
    return reader.read().convertToFormat(QImage::Format_ARGB32);
}

} // namespace dwellkey
