// SPDX-License-Identifier: MIT
#include "platform/qt/qt_translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>

#include <algorithm>

namespace dwellkey {
namespace {

/// "pt-BR" as "pt_BR", the form in which the files are named.
QString localeName(QString language) {
    return language.replace(QLatin1Char('-'), QLatin1Char('_'));
}

} // namespace

QtTranslations::QtTranslations(const QStringList& languages, const QStringList& folders) {
    for (const QString& language : languages) {
        const QString name = localeName(language);
        // Without this, who reads English before German would get German.
        if (name == QLatin1String("en") || name.startsWith(QLatin1String("en_"))
            || name == QLatin1String("C")) {
            break;
        }
        if (load(QStringLiteral("dwellkey_") + name, folders)) {
            load(QStringLiteral("qtbase_") + name,
                 {QLibraryInfo::path(QLibraryInfo::TranslationsPath)});
            return;
        }
    }
    // The texts of the sources are English, too, but not all of them in the words of this desktop.
    load(QStringLiteral("dwellkey_en"), folders);
}

QStringList QtTranslations::defaultFolders() {
    const QDir executable(QCoreApplication::applicationDirPath());
    return {executable.filePath(QStringLiteral("translations")),
            executable.filePath(QStringLiteral("../share/dwellkey/translations"))};
}

bool QtTranslations::load(const QString& file, const QStringList& folders) {
    auto translator = std::make_unique<QTranslator>();
    const bool isLoaded = std::ranges::any_of(
        folders, [&](const QString& folder) { return translator->load(file, folder); });
    if (isLoaded) {
        QCoreApplication::installTranslator(translator.get());
        translators_.push_back(std::move(translator));
    }
    return isLoaded;
}

} // namespace dwellkey
