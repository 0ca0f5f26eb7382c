// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QTranslator>

#include <memory>
#include <vector>

namespace dwellkey {

/// The user's language in everything that the application says from now on, for as long as this
/// lives: our texts, and the toolkit's own on its standard buttons and dialogs.
class QtTranslations {
public:
    /// `languages` as the system lists them, the one the user likes best first. The first one that
    /// we speak is taken; English needs no file.
    explicit QtTranslations(const QStringList& languages,
                            const QStringList& folders = defaultFolders());

    /// Beside the executable where it was built, and where it is installed.
    static QStringList defaultFolders();

private:
    bool load(const QString& file, const QStringList& folders);

    std::vector<std::unique_ptr<QTranslator>> translators_; // they take themselves out
};

} // namespace dwellkey
