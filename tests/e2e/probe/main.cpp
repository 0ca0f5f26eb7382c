// SPDX-License-Identifier: MIT
// dwellkey-probe: an application that reports what happens to it. See report.h and options.h.
#include "options.h"
#include "probe_window.h"
#include "report.h"
#include "watcher.h"

#include <QApplication>

#include <memory>
#include <vector>

int main(int argc, char** argv) {
    using namespace dwellkey::probe;
    const QApplication application(argc, argv);
    const Options options = parseOptions();
    const Watcher watcher;
    std::vector<std::unique_ptr<ProbeWindow>> windows;
    for (int index = 0; index < options.windows; ++index) {
        windows.push_back(std::make_unique<ProbeWindow>(options, index));
        windows.back()->present(options);
    }
    if (options.hasDialog) {
        openDialog(*windows.front());
    }
    report(QStringLiteral("ready"));
    QObject::connect(&application, &QApplication::aboutToQuit,
                     [] { report(QStringLiteral("quit")); });
    return QApplication::exec();
}
