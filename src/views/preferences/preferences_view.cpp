// SPDX-License-Identifier: MIT
#include "views/preferences/preferences_view.h"

#include "keycommands/key_names.h"
#include "keycommands/recorder/key_recorder_view.h"
#include "views/common/secondary_label.h"
#include "views/preferences/application_picker.h"
#include "views/preferences/apps_list_view.h"
#include "views/preferences/delay_slider.h"
#include "views/preferences/symbols.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QFormLayout>
#include <QHideEvent>
#include <QLabel>
#include <QMessageBox>
#include <QToolButton>
#include <algorithm>
#include <array>
#include <chrono>
#include <utility>
#include <vector>

namespace dwellkey {
namespace {

constexpr int pagePadding = 20;
constexpr int pageSpacing = 12;
constexpr int captionSpacing = 4; // between a control and what explains it
constexpr int pageWidth = 340;
constexpr QSize controlButtonSize{28, 24};

QVBoxLayout* makeStack(int spacing) {
    auto* stack = new QVBoxLayout;
    stack->setSpacing(spacing);
    return stack;
}

// The models' texts of the scope picker, for the translators.
[[maybe_unused]] constexpr std::array scopeTexts = {
    QT_TRANSLATE_NOOP("PreferencesView", "Use Dwellkey with all apps except..."),
    QT_TRANSLATE_NOOP("PreferencesView", "Only use Dwellkey with the following apps..."),
};

/// Explains the check box above it, and so begins where that one's text does.
QLayout* makeIndented(QWidget* caption, const QCheckBox& box) {
    const QStyle* style = box.style();
    auto* row = new QHBoxLayout;
    row->addSpacing(style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &box)
                    + style->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, &box));
    row->addWidget(caption, 1);
    return row;
}

QToolButton* makeControlButton(const TemplateImage& symbol, const QString& name, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setIcon(symbolIcon(symbol, parent->palette()));
    button->setFixedSize(controlButtonSize);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(name);
    button->setToolTip(name);
    return button;
}

} // namespace

PreferencesView::PreferencesView(Models models, Platform& platform)
    : FixedWindow(tr("Preferences")), preferencesViewModel_(models.preferences),
      keyboardShortcutsModel_(models.keyboardShortcuts), alertManager_(models.alertManager),
      navigation_(models.navigation), platform_(platform),
      refreshOnce_(platform.runLoop, [this] { refresh(); }) {
    buildPage();
    connectControls();
}

PreferencesView::~PreferencesView() = default;

void PreferencesView::buildPage() {
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(pagePadding, pagePadding, pagePadding, pagePadding);
    page->setSpacing(pageSpacing);
    page->addLayout(makeShortcutRows());
    page->addLayout(makeDelayRows());
    scope_ = new QComboBox(this);
    for (const AppScopeMode mode : preferencesViewModel_.appScopeOptions()) {
        scope_->addItem(
            QCoreApplication::translate("PreferencesView", std::string(rawValue(mode)).c_str()));
    }
    scope_->setAccessibleName(tr("Scope"));
    page->addWidget(scope_);
    page->addLayout(makeApplicationRows());
    page->addLayout(makeMenuBarRows());
    opensAtLogin_ = new QCheckBox(tr("Open automatically at login"), this);
    page->addWidget(opensAtLogin_);
    setMinimumWidth(pageWidth);
}

QLayout* PreferencesView::makeShortcutRows() {
    auto* form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setVerticalSpacing(captionSpacing * 2);
    const auto addRow = [&](const QString& text, const KeyCommand& command) {
        auto* recorder = new KeyRecorderView(command, platform_, this);
        recorder->setAccessibleName(text);
        auto* label = new QLabel(text, this);
        label->setBuddy(recorder);
        form->addRow(label, recorder);
    };
    addRow(tr("Quit App Shortcut:"), keyboardShortcutsModel_.quitApplicationCommand);
    addRow(tr("Close Window Shortcut:"), keyboardShortcutsModel_.closeWindowCommand);
    QLayout* rows = makeStack(captionSpacing);
    static_cast<QVBoxLayout*>(rows)->addLayout(form);
    rows->addWidget(new SecondaryLabel(
        tr("Choose the keyboard shortcuts that you would like Dwellkey to override.")));
    return rows;
}

QLayout* PreferencesView::makeDelayRows() {
    auto* rows = makeStack(captionSpacing);
    auto* label = new QLabel(tr("Delay Until Activation"), this);
    delay_ = new DelaySlider(preferencesViewModel_, this);
    delay_->slider().setAccessibleName(label->text());
    label->setBuddy(delay_);
    rows->addWidget(label);
    rows->addWidget(delay_);
    return rows;
}

QLayout* PreferencesView::makeApplicationRows() {
    auto* rows = makeStack(captionSpacing);
    apps_ = new AppsListView(preferencesViewModel_, platform_, this);
    rows->addWidget(apps_, 1);
    plus_ = makeControlButton(makePlus(), tr("Add application"), this);
    minus_ = makeControlButton(makeMinus(), tr("Remove selected applications"), this);
    auto* group = new QHBoxLayout;
    group->setSpacing(0);
    group->addWidget(plus_);
    group->addWidget(minus_);
    group->addStretch();
    rows->addLayout(group);
    return rows;
}

QLayout* PreferencesView::makeMenuBarRows() {
    auto* rows = makeStack(captionSpacing);
    showsMenuBarIcon_ = new QCheckBox(tr("Show menu bar icon"), this);
    rows->addWidget(showsMenuBarIcon_);
    auto* captions = new QWidget(this);
    auto* lines = new QVBoxLayout(captions);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(captionSpacing);
    lines->addWidget(new SecondaryLabel(
        tr("Use the Dwellkey application in Finder to make this window visible again.")));
    rows->addLayout(makeIndented(captions, *showsMenuBarIcon_));
    return rows;
}

void PreferencesView::connectControls() {
    PreferencesViewModel& model = preferencesViewModel_;
    connect(scope_, &QComboBox::activated, this, [&model](int index) {
        model.setSelectedAppScope(model.appScopeOptions().at(static_cast<std::size_t>(index)));
    });
    connect(showsMenuBarIcon_, &QCheckBox::toggled, this,
            [&model](bool shown) { model.setShowMenuBarIcon(shown); });
    connect(opensAtLogin_, &QCheckBox::toggled, this,
            [&model](bool opens) { model.setStartOnLogin(opens); });
    connect(plus_, &QToolButton::clicked, this, &PreferencesView::presentPicker);
    connect(minus_, &QToolButton::clicked, this, &PreferencesView::removeSelectedApps);
    connect(apps_, &AppsListView::removalRequested, this, &PreferencesView::removeSelectedApps);
    connect(apps_, &AppsListView::selectedAppsChanged, this,
            [this] { minus_->setEnabled(!apps_->selectedApps().empty()); });
    connect(apps_, &AppsListView::locationsDropped, this, [this](const QList<QUrl>& locations) {
        std::ranges::for_each(locations, [this](const QUrl& each) { addLocation(each); });
    });
    minus_->setEnabled(false);
}

void PreferencesView::viewWillAppear() {
    followWhileShown();
    preferencesViewModel_.refreshAppsOnDisk();
    refresh();
}

void PreferencesView::followWhileShown() {
    const auto schedule = [this] { refreshOnce_.schedule(); };
    modelChanges_ = preferencesViewModel_.objectWillChange.subscribe(schedule);
    alertChanges_ = alertManager_.objectWillChange.subscribe(schedule);
    loginItemChanges_ =
        platform_.loginItem.observe([this] { preferencesViewModel_.refreshLoginItemStatus(); });
    catalogChanges_ = platform_.applicationCatalog.didChange.subscribe([this] {
        constexpr std::chrono::milliseconds installationTakes{500};
        lookAgain_ = platform_.runLoop.repeat(installationTakes, [this] {
            lookAgain_.cancel();
            static_cast<void>(platform_.applicationCatalog.applications()); // watches on
            preferencesViewModel_.refreshAppsOnDisk();
            refresh();
        });
    });
    // It tells of changes only after it was asked, and nobody need have done so lately.
    static_cast<void>(platform_.applicationCatalog.applications());
}

void PreferencesView::hideEvent(QHideEvent* event) {
    FixedWindow::hideEvent(event);
    if (event->spontaneous()) {
        return; // minimised
    }
    for (Subscription* followed :
         {&modelChanges_, &alertChanges_, &loginItemChanges_, &catalogChanges_, &lookAgain_}) {
        followed->cancel();
    }
}

void PreferencesView::changeEvent(QEvent* event) {
    FixedWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange) {
        preferencesViewModel_.refreshLoginItemStatus();
    } else if (event->type() == QEvent::PaletteChange && plus_ != nullptr) {
        plus_->setIcon(symbolIcon(makePlus(), palette()));
        minus_->setIcon(symbolIcon(makeMinus(), palette()));
    }
}

/// Everything that shows follows from the models; runs once per turn in which they changed.
void PreferencesView::refresh() {
    const PreferencesViewModel& model = preferencesViewModel_;
    const auto setSilently = [](QCheckBox& box, bool isOn) {
        const QSignalBlocker fromTheModel(box);
        box.setChecked(isOn);
    };
    delay_->refresh();
    const auto& options = model.appScopeOptions();
    const auto selected = std::ranges::find(options, model.selectedAppScope());
    scope_->setCurrentIndex(static_cast<int>(selected - options.begin()));
    apps_->refresh();
    setSilently(*showsMenuBarIcon_, model.showMenuBarIcon());
    setSilently(*opensAtLogin_, model.startOnLogin());
    refreshAlert();
}

void PreferencesView::refreshAlert() {
    if (!alertManager_.isAlertPresented.get()) {
        if (alert_ != nullptr) {
            alert_->close();
        }
        return;
    }
    const bool isNew = alert_ == nullptr;
    if (isNew) {
        alert_ = new QMessageBox(QMessageBox::Warning, {}, {}, QMessageBox::NoButton, this);
        alert_->setAttribute(Qt::WA_DeleteOnClose);
        alert_->setTextFormat(Qt::PlainText);
        alert_->addButton(tr("OK"), QMessageBox::AcceptRole);
        connect(alert_, &QDialog::finished, this,
                [this] { alertManager_.isAlertPresented = false; });
    }
    const QString title = QString::fromStdString(alertManager_.title.get());
    alert_->setWindowTitle(title);
    alert_->setText(title);
    alert_->setInformativeText(QString::fromStdString(alertManager_.message.get()));
    if (isNew) {
        alert_->open(); // window-modal; placed by the size that it has now
    }
}

void PreferencesView::addLocation(const QUrl& location) {
    using Problem = ApplicationCatalog::Problem;
    const auto url = Url::parse(location.toString(QUrl::FullyEncoded).toStdString());
    const auto application = url ? platform_.applicationCatalog.applicationAt(*url)
                                 : Problem{location.toString().toStdString()};
    if (const auto* problem = std::get_if<Problem>(&application)) {
        alertManager_.showAlert(tr("Failed to add app").toStdString(),
                                problem->localizedDescription);
        return;
    }
    preferencesViewModel_.addApp(std::get<Url>(application));
}

void PreferencesView::removeSelectedApps() {
    const SelectedApps selected = apps_->selectedApps();
    for (const AppInfo& app : selected) {
        std::vector<AppInfo> left = preferencesViewModel_.apps();
        std::erase_if(left, [&](const AppInfo& listed) { return listed.url() == app.url(); });
        preferencesViewModel_.setApps(std::move(left));
    }
    apps_->clearSelectedApps();
}

void PreferencesView::presentPicker() {
    auto* picker = new ApplicationPicker(platform_, this); // deletes itself
    connect(picker, &ApplicationPicker::chosen, this, &PreferencesView::addLocation);
    picker->open();
}

} // namespace dwellkey
