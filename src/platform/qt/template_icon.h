// SPDX-License-Identifier: MIT
// A picture of one colour, which whoever shows it chooses.
#pragma once

#include <QImage>
#include <QString>

#include <string>
#include <vector>

namespace dwellkey {

struct TemplateIcon {
    QString name;        // in the icon theme
    QString themeFolder; // where to look beside the system's folders; empty when that is not needed
    QString file;        // the picture itself, an SVG; empty when it is missing
};

/// The icon and what goes with it, among the folders of this program's own resources.
TemplateIcon findTemplateIcon(const QString& name, const std::vector<std::string>& resourceFolders);

/// For bars that know no icon themes: the picture in its own colour, `extent` pixels square. Null
/// when the file cannot be read.
QImage drawTemplateIcon(const TemplateIcon& icon, int extent);

} // namespace dwellkey
