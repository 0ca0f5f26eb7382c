// SPDX-License-Identifier: MIT
// dwellkey-gallery FOLDER LOOK: draws every window in this look into FOLDER; without arguments,
// names the looks.
#include "look.h"
#include "scenes.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QTextStream>

#include <cstdlib>

namespace {

using namespace dwellkey;

bool draw(const Scene& scene, const QDir& folder, const QString& look) {
    bool isWritten = false;
    scene.play([&](QWidget& window) {
        const QString name = QString::fromStdString(scene.name);
        isWritten = window.grab().save(
            folder.filePath(name + QLatin1Char('.') + look + QStringLiteral(".png")));
    });
    return isWritten;
}

int drawAll(const QString& folderName, const QString& look) {
    const QDir folder(folderName);
    for (const Scene& scene : scenes()) {
        if (!draw(scene, folder, look)) {
            QTextStream(stderr) << "dwellkey-gallery: no picture of " << scene.name.c_str()
                                << " in " << folderName << '\n';
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 1) {
        QTextStream(stdout) << lookNames().join(QLatin1Char('\n')) << '\n';
        return EXIT_SUCCESS;
    }
    const QString look = argc == 3 ? QString::fromLocal8Bit(argv[2]) : QString();
    if (!lookNames().contains(look) || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        QTextStream(stderr) << "usage: dwellkey-gallery FOLDER "
                            << lookNames().join(QLatin1Char('|')) << '\n';
        return EXIT_FAILURE;
    }
    prepareLook(look);
    const QApplication application(argc, argv);
    applyLook(look);
    return drawAll(QString::fromLocal8Bit(argv[1]), look);
}
