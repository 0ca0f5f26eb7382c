// SPDX-License-Identifier: MIT
#include "platform/qt/qt_alerts.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>

namespace dwellkey {
namespace {

QMessageBox::Icon iconFor(AlertStyle style) {
    switch (style) {
    case AlertStyle::informational:
        return QMessageBox::Information;
    case AlertStyle::critical:
        return QMessageBox::Critical;
    case AlertStyle::warning:
        break;
    }
    return QMessageBox::Warning;
}

/// Texts come from the system and from other programs' names: shown as they are, never as markup.
QString plain(const std::string& text) {
    return QString::fromStdString(text);
}

} // namespace

int QtAlerts::runModal(const Alert& alert) {
    QMessageBox box;
    box.setWindowTitle(QStringLiteral("Dwellkey"));
    box.setIcon(iconFor(alert.style));
    box.setTextFormat(Qt::PlainText);
    box.setText(plain(alert.messageText));
    box.setInformativeText(plain(alert.informativeText));
    for (QLabel* label : box.findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText); // the box itself does so for the message only
    }
    QList<QPushButton*> buttons;
    for (const std::string& title : alert.buttons) {
        const auto role = buttons.isEmpty() ? QMessageBox::AcceptRole : QMessageBox::RejectRole;
        buttons.append(box.addButton(plain(title), role));
    }
    if (!buttons.isEmpty()) {
        box.setDefaultButton(buttons.front());
        box.setEscapeButton(buttons.back());
    }
    box.exec();
    const auto pressed = buttons.indexOf(qobject_cast<QPushButton*>(box.clickedButton()));
    const auto answer = pressed >= 0 ? pressed : std::max<qsizetype>(buttons.size() - 1, 0);
    return alertFirstButtonReturn + static_cast<int>(answer);
}

void QtBeeper::beep() {
    QApplication::beep();
}

} // namespace dwellkey
