// SPDX-License-Identifier: MIT
#include "views/preferences/application_picker.h"

#include "views/common/icons.h"
#include "views/preferences/application_row_delegate.h"

#include <QAbstractListModel>
#include <QCollator>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QVBoxLayout>
#include <algorithm>
#include <set>
#include <utility>
#include <vector>

namespace dwellkey {
namespace {

constexpr int searchRole = Qt::UserRole + 2;
constexpr int locationRole = Qt::UserRole + 3;
constexpr QSize defaultSize{380, 440};

struct Choice {
    CatalogedApplication application;
    QString name;
    bool isRunning;
};

std::vector<Choice> choicesOf(const Platform& platform) {
    std::set<std::string> running;
    for (const auto& application : platform.workspace.runningApplications()) {
        if (const auto& identifier = application->bundleIdentifier()) {
            running.insert(*identifier);
        }
    }
    std::vector<Choice> choices;
    for (CatalogedApplication& application : platform.applicationCatalog.applications()) {
        const bool isRunning = running.contains(application.bundleIdentifier);
        const QString name = QString::fromStdString(application.localizedName);
        choices.push_back({std::move(application), name, isRunning});
    }
    QCollator byName;
    byName.setCaseSensitivity(Qt::CaseInsensitive);
    std::ranges::sort(choices, [&](const Choice& one, const Choice& other) {
        return one.isRunning != other.isRunning ? one.isRunning
                                                : byName.compare(one.name, other.name) < 0;
    });
    return choices;
}

class Choices final : public QAbstractListModel {
public:
    Choices(std::vector<Choice> choices, QObject* parent)
        : QAbstractListModel(parent), choices_(std::move(choices)) {}

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(choices_.size());
    }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        const auto& [application, name, isRunning] =
            choices_.at(static_cast<std::size_t>(index.row()));
        switch (role) {
        case Qt::DisplayRole:
            return name;
        case Qt::DecorationRole: // asked for when the row comes into view
            return loadIcon(application.icon);
        case Qt::AccessibleDescriptionRole:
        case ApplicationRowDelegate::secondLineRole:
            return isRunning ? ApplicationPicker::tr("Running") : QString();
        case searchRole:
            return name + u' ' + QString::fromStdString(application.bundleIdentifier);
        case locationRole:
            return QUrl(QString::fromStdString(application.url.absoluteString()));
        default:
            return {};
        }
    }

private:
    std::vector<Choice> choices_;
};

/// Lets through what contains every word that was typed.
class WordFilter final : public QSortFilterProxyModel {
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setWords(const QString& text) {
        words_ = text.split(u' ', Qt::SkipEmptyParts);
        invalidateFilter();
    }

protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
        const QString searched = sourceModel()->index(row, 0, parent).data(searchRole).toString();
        return std::ranges::all_of(words_, [&](const QString& word) {
            return searched.contains(word, Qt::CaseInsensitive);
        });
    }

private:
    QStringList words_;
};

} // namespace

ApplicationPicker::ApplicationPicker(const Platform& platform, QWidget* parent)
    : QDialog(parent), search_(new QLineEdit(this)), list_(new QListView(this)),
      shown_(new WordFilter(this)) {
    setWindowTitle(tr("Add Application"));
    setAttribute(Qt::WA_DeleteOnClose);
    resize(defaultSize);
    search_->setPlaceholderText(tr("Search applications"));
    search_->setClearButtonEnabled(true);
    search_->installEventFilter(this);
    list_->setItemDelegate(new ApplicationRowDelegate(list_));
    list_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setUniformItemSizes(true);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setAccessibleName(tr("Applications"));
    fill(platform);
    buildLayout();
    connect(search_, &QLineEdit::textChanged, this, &ApplicationPicker::filter);
    connect(list_, &QListView::activated, this, &ApplicationPicker::acceptCurrent);
    selectFirst();
}

void ApplicationPicker::fill(const Platform& platform) {
    shown_->setSourceModel(new Choices(choicesOf(platform), this));
    list_->setModel(shown_);
}

void ApplicationPicker::buildLayout() {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    addButton_ = buttons->addButton(tr("Add"), QDialogButtonBox::AcceptRole);
    addButton_->setDefault(true);
    auto* choose = buttons->addButton(tr("Choose File..."), QDialogButtonBox::ResetRole);
    choose->setAutoDefault(false);
    connect(choose, &QPushButton::clicked, this, &ApplicationPicker::chooseFile);
    connect(buttons, &QDialogButtonBox::accepted, this, &ApplicationPicker::acceptCurrent);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* stack = new QVBoxLayout(this);
    stack->addWidget(search_);
    stack->addWidget(list_, 1);
    stack->addWidget(buttons);
}

/// The arrow keys move through the list while the user types.
bool ApplicationPicker::eventFilter(QObject* watched, QEvent* event) {
    if (watched == search_ && event->type() == QEvent::KeyPress) {
        const int pressed = static_cast<QKeyEvent*>(event)->key();
        if (pressed == Qt::Key_Down || pressed == Qt::Key_Up || pressed == Qt::Key_PageDown
            || pressed == Qt::Key_PageUp) {
            return QCoreApplication::sendEvent(list_, event);
        }
    }
    return QDialog::eventFilter(watched, event);
}

void ApplicationPicker::filter(const QString& text) {
    static_cast<WordFilter*>(shown_)->setWords(text);
    selectFirst();
}

void ApplicationPicker::selectFirst() {
    list_->setCurrentIndex(shown_->index(0, 0));
    addButton_->setEnabled(shown_->rowCount() > 0);
}

void ApplicationPicker::acceptCurrent() {
    const QModelIndex current = list_->currentIndex();
    if (current.isValid()) {
        finish(current.data(locationRole).toUrl());
    }
}

void ApplicationPicker::chooseFile() {
    auto* dialog = new QFileDialog(this, tr("Choose Application"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilter(tr("Applications (*.desktop)"));
    connect(dialog, &QFileDialog::urlSelected, this, &ApplicationPicker::finish);
    dialog->open();
}

void ApplicationPicker::finish(const QUrl& location) {
    Q_EMIT chosen(location);
    accept();
}

} // namespace dwellkey
