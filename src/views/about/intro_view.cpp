// SPDX-License-Identifier: MIT
#include "views/about/intro_view.h"

#include "views/about/hold_lesson.h"
#include "views/about/icon_picture.h"
#include "views/about/product_labels.h"
#include "views/common/fonts.h"
#include "views/common/icons.h"
#include "views/common/secondary_label.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace dwellkey {
namespace {

constexpr QSize defaultSize(243, 330);
constexpr int padding = 20;
constexpr int iconSide = 100;
constexpr SystemFont titleFont{16};

QFrame* divider() {
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

QLabel* plainText(const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

} // namespace

// The name of the product is its title in every language.
IntroView::IntroView(KeyboardShortcutsModel& shortcuts, Platform& platform)
    : FixedWindow(QString::fromLatin1(productName)), lesson_(new HoldLesson(shortcuts, platform)) {
    const QString name = QString::fromLatin1(productName);
    auto* title = plainText(tr("Welcome to %1").arg(name));
    title->setFont(fontFor(titleFont, QFont::Medium));
    auto* explanation = plainText(
        tr("You can access your %1 Preferences by clicking the %1 menu bar item.").arg(name));
    explanation->setWordWrap(true);
    auto* wayBack = new SecondaryLabel(
        tr("This desktop has no place for it. Start %1 again to open the Preferences.").arg(name),
        regularFont, this);
    wayBack->setObjectName(QStringLiteral("wayBack"));
    wayBack->setAlignment(Qt::AlignCenter);
    const auto showWayBack = [&platform, wayBack] {
        wayBack->setVisible(!platform.menuBarExtra.isHosted());
    };
    showWayBack();
    hostingChanges_ = platform.menuBarExtra.hostingDidChange.subscribe(showWayBack);
    auto* open = new QPushButton(tr("Open Preferences..."));
    open->setDefault(true);
    connect(open, &QPushButton::clicked, this,
            [&platform] { platform.windowHost.open("PreferencesView"); });

    auto* stack = new QVBoxLayout;
    stack->addStretch();
    stack->addWidget(title);
    stack->addWidget(divider());
    stack->addSpacing(2);
    stack->addWidget(lesson_);
    stack->addSpacing(14);
    stack->addWidget(explanation);
    stack->addWidget(wayBack);
    stack->addSpacing(14);
    stack->addWidget(open, 0, Qt::AlignHCenter);
    stack->addSpacing(16);
    stack->addWidget(new IconPicture({applicationIconName}, iconSide), 0, Qt::AlignHCenter);
    stack->addStretch();

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(padding, padding, padding, padding);
    grid->setColumnMinimumWidth(0, defaultSize.width() - 2 * padding);
    grid->setRowMinimumHeight(0, defaultSize.height() - 2 * padding);
    grid->addLayout(stack, 0, 0);
}

void IntroView::showEvent(QShowEvent* event) {
    FixedWindow::showEvent(event);
    lesson_->setOpen(true);
}

void IntroView::hideEvent(QHideEvent* event) {
    FixedWindow::hideEvent(event);
    lesson_->setOpen(false);
}

} // namespace dwellkey
