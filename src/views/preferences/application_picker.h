// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"
#include "support/url.h"

#include <QDialog>
#include <QUrl>

class QLineEdit;
class QListView;
class QPushButton;
class QSortFilterProxyModel;

namespace dwellkey {

/// Lets the user choose one of the installed applications, those that run first, or a desktop
/// entry in another place. It is made anew each time it is needed, and deletes itself when closed.
class ApplicationPicker final : public QDialog {
    Q_OBJECT

public:
    /// The platform must outlive the picker.
    ApplicationPicker(const Platform& platform, QWidget* parent);

Q_SIGNALS:
    /// The user's choice, which need not be an application yet.
    void chosen(const QUrl& location);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fill(const Platform& platform);
    void buildLayout();
    void filter(const QString& text);
    void selectFirst();
    void acceptCurrent();
    void chooseFile();
    void finish(const QUrl& location);

    QLineEdit* search_;
    QListView* list_;
    QSortFilterProxyModel* shown_;
    QPushButton* addButton_ = nullptr;
};

} // namespace dwellkey
