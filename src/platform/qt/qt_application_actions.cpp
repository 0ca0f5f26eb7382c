// SPDX-License-Identifier: MIT
#include "platform/qt/qt_application_actions.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <memory>
#include <utility>

namespace dwellkey {
namespace {

constexpr int answerTimeout = 1000; // milliseconds

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// One request on its way through the bus: whose name is it, does the action exist, activate.
struct Request : std::enable_shared_from_this<Request> {
    QDBusConnection bus = QDBusConnection::sessionBus();
    QString name;
    QString path;
    QString action;
    uint process = 0;
    std::function<void()> otherwise;

    void start() {
        auto question = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetConnectionUnixProcessID"));
        question << name;
        ask(question, [](Request& self, const QDBusMessage& answer) {
            if (answer.arguments().value(0).toUInt() == self.process) {
                self.describe();
            } else {
                self.otherwise();
            }
        });
    }

private:
    using Continuation = void (*)(Request& self, const QDBusMessage& answer);

    QDBusMessage call(const QString& method) const {
        auto message =
            QDBusMessage::createMethodCall(name, path, QStringLiteral("org.gtk.Actions"), method);
        message.setAutoStartService(false);
        return message;
    }

    void describe() {
        ask(call(QStringLiteral("Describe")) << action,
            [](Request& self, const QDBusMessage& answer) {
                // (enabled, parameter type, state) in one struct; a quit takes no parameter
                const auto argument = answer.arguments().value(0).value<QDBusArgument>();
                bool isEnabled = false;
                if (argument.currentType() == QDBusArgument::StructureType) {
                    argument.beginStructure();
                    argument >> isEnabled;
                }
                if (isEnabled) {
                    self.activate();
                } else {
                    self.otherwise();
                }
            });
    }

    void activate() {
        auto message = call(QStringLiteral("Activate"));
        message << action << QVariantList() << QVariantMap();
        bus.send(message);
    }

    void ask(const QDBusMessage& question, Continuation next) {
        auto* watcher =
            new QDBusPendingCallWatcher(bus.asyncCall(question, answerTimeout)); // NOLINT
        QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                         [self = shared_from_this(), next](QDBusPendingCallWatcher* finished) {
                             finished->deleteLater();
                             if (finished->isError()) {
                                 self->otherwise();
                             } else {
                                 next(*self, finished->reply());
                             }
                         });
    }
};

} // namespace

void QtApplicationActions::activate(const ActionAddress& address, pid_t process,
                                    std::string_view action, std::function<void()> otherwise) {
    const auto request = std::make_shared<Request>();
    request->name = text(address.busName);
    request->path = text(address.objectPath);
    request->action = text(action);
    request->process = static_cast<uint>(process);
    request->otherwise = std::move(otherwise);
    const bool isPath = QDBusObjectPath(request->path).path() == request->path;
    if (!request->bus.isConnected() || !isPath) {
        request->otherwise();
        return;
    }
    request->start();
}

} // namespace dwellkey
