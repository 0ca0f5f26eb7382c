// SPDX-License-Identifier: MIT
#include "options.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace dwellkey::probe {

namespace {

std::optional<QString> valueOf(const QCommandLineParser& parser, const QString& option) {
    return parser.isSet(option) ? std::optional(parser.value(option)) : std::nullopt;
}

} // namespace

Options parseOptions() {
    const auto name = [](const char* text) { return QString::fromLatin1(text); };
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions({
        {name("class"), name("WM_CLASS of the windows."), name("name")},
        {name("title"), name("Title of the windows."), name("text"), name("Probe")},
        {name("windows"), name("How many windows."), name("count"), name("1")},
        {name("dialog"), name("Open a modal dialog too.")},
        {name("refuse"), name("Ask about unsaved changes instead of closing.")},
        {name("fullscreen"), name("Fill the screen.")},
        {name("no-delete-protocol"), name("Do not speak WM_DELETE_WINDOW.")},
        {name("forge-pid"), name("State this process id."), name("pid")},
        {name("desktop-window"), name("Be the desktop.")},
        {name("text"), name("Offer a text field.")},
        {name("drag"), name("Let this address be dragged out."), name("url")},
    });
    parser.process(*QCoreApplication::instance());
    Options options;
    options.className = valueOf(parser, name("class"));
    options.title = parser.value(name("title"));
    options.windows = parser.value(name("windows")).toInt();
    options.hasDialog = parser.isSet(name("dialog"));
    options.refusesToClose = parser.isSet(name("refuse"));
    options.isFullscreen = parser.isSet(name("fullscreen"));
    options.speaksDeleteProtocol = !parser.isSet(name("no-delete-protocol"));
    if (const auto pid = valueOf(parser, name("forge-pid"))) {
        options.forgedPid = pid->toUInt();
    }
    options.isDesktop = parser.isSet(name("desktop-window"));
    options.hasTextField = parser.isSet(name("text"));
    options.dragged = valueOf(parser, name("drag"));
    return options;
}

} // namespace dwellkey::probe
