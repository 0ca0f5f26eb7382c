// SPDX-License-Identifier: MIT
#include "binder/windows/open_panel.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QStandardPaths>
#include <QUrl>
#include <algorithm>

namespace dwellkey {
namespace {

QFileDialog::FileMode fileMode(const OpenPanel& panel) {
    if (panel.canChooseDirectories && !panel.canChooseFiles) {
        return QFileDialog::Directory;
    }
    return panel.allowsMultipleSelection ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile;
}

} // namespace

OpenPanelResult runModal(const OpenPanel& panel, QWidget* window) {
    QFileDialog dialog(window, QCoreApplication::translate("OpenPanel", "Add Application"),
                       QString::fromStdString(panel.directory));
    dialog.setFileMode(fileMode(panel));
    QStringList patterns;
    for (const std::string& type : panel.allowedFileTypes) {
        patterns << QStringLiteral("*.") + QString::fromStdString(type);
    }
    if (!patterns.isEmpty()) {
        const QString kind = QCoreApplication::translate("OpenPanel", "Applications");
        dialog.setNameFilter(QStringLiteral("%1 (%2)").arg(kind, patterns.join(u' ')));
    }
    QList<QUrl> places;
    for (const QString& folder :
         QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation)) {
        if (QDir(folder).exists()) {
            places << QUrl::fromLocalFile(folder);
        }
    }
    dialog.setSidebarUrls(places);
    OpenPanelResult result;
    if (dialog.exec() == QDialog::Accepted) {
        result.response = ModalResponse::ok;
        for (const QString& file : dialog.selectedFiles()) {
            result.urls.push_back(Url::fromPath(file.toStdString()));
        }
    }
    return result;
}

std::string applicationsFolder() {
    QStringList folders = QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
    if (folders.size() > 1) {
        folders.removeFirst(); // the user's own
    }
    // Display managers, package systems and desktops add folders of a few entries anywhere.
    const auto entryCount = [](const QString& folder) {
        return QDir(folder).entryList({QStringLiteral("*.desktop")}, QDir::Files).size();
    };
    const auto most = std::ranges::max_element(folders, {}, entryCount);
    return most == folders.end() || !QDir(*most).exists() ? "/" : most->toStdString();
}

} // namespace dwellkey
