// SPDX-License-Identifier: MIT
#include "probe_window.h"

#include "native_windows.h"
#include "report.h"

#include <QCloseEvent>
#include <QDialog>
#include <QDrag>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QUrl>
#include <QVBoxLayout>

namespace dwellkey::probe {

namespace {

constexpr QSize windowSize{400, 300};
constexpr int cascade = 40;

QJsonObject described(const QWidget& window, const QString& role) {
    return {{QStringLiteral("window"), qint64(window.winId())}, {QStringLiteral("role"), role}};
}

} // namespace

ProbeWindow::ProbeWindow(const Options& options, int index)
    : refusesToClose_(options.refusesToClose), dragged_(options.dragged) {
    setWindowTitle(options.windows == 1
                       ? options.title
                       : QStringLiteral("%1 %2").arg(options.title).arg(index + 1));
    resize(windowSize);
    move(cascade * (index + 1), cascade * (index + 1));
    setFocusPolicy(Qt::StrongFocus);
    if (options.hasTextField) {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(new QPlainTextEdit(this));
    }
}

void ProbeWindow::present(const Options& options) {
    applyNativeProperties(*this, options);
    if (options.isFullscreen) {
        showFullScreen();
    } else {
        show();
    }
    report(
        QStringLiteral("window"),
        described(*this, options.isDesktop ? QStringLiteral("desktop") : QStringLiteral("normal")));
}

void ProbeWindow::closeEvent(QCloseEvent* event) {
    report(QStringLiteral("close"), described(*this, QStringLiteral("normal")));
    if (refusesToClose_) {
        event->ignore();
        askAboutUnsavedChanges();
    }
}

/// As file managers drag: they would rather move, and then delete the original.
void ProbeWindow::mousePressEvent(QMouseEvent* event) {
    if (!dragged_) {
        QWidget::mousePressEvent(event);
        return;
    }
    auto* content = new QMimeData;
    content->setUrls({QUrl(*dragged_)});
    auto* drag = new QDrag(this); // deletes itself
    drag->setMimeData(content);
    connect(drag, &QDrag::actionChanged, [](Qt::DropAction action) {
        if (action != Qt::IgnoreAction) {
            report(QStringLiteral("drag-welcome"));
        }
    });
    const auto action = drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
    report(action == Qt::MoveAction ? QStringLiteral("moved-away") : QStringLiteral("drag-ended"));
}

void ProbeWindow::askAboutUnsavedChanges() {
    auto* prompt = new QMessageBox(QMessageBox::Warning, QStringLiteral("Unsaved"),
                                   QStringLiteral("There are unsaved changes."),
                                   QMessageBox::Discard | QMessageBox::Cancel, this);
    prompt->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(prompt, &QDialog::finished, [] { report(QStringLiteral("prompt-closed")); });
    prompt->open();
    report(QStringLiteral("prompt-opened"), described(*prompt, QStringLiteral("prompt")));
}

void openDialog(QWidget& parent) {
    auto* dialog = new QDialog(&parent);
    dialog->setWindowTitle(QStringLiteral("Dialog"));
    QObject::connect(dialog, &QDialog::finished, [] { report(QStringLiteral("dialog-closed")); });
    dialog->open();
    report(QStringLiteral("window"), described(*dialog, QStringLiteral("dialog")));
}

} // namespace dwellkey::probe
