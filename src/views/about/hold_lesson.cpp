// SPDX-License-Identifier: MIT
#include "views/about/hold_lesson.h"

#include "hold/panel/timer_progress_bar.h"
#include "keycommands/key_names.h"
#include "views/common/secondary_label.h"

#include <QLabel>
#include <QLocale>
#include <QStringList>
#include <QVBoxLayout>

namespace dwellkey {
namespace {

constexpr int barHeight = 6;

} // namespace

HoldLesson::HoldLesson(KeyboardShortcutsModel& shortcuts, Platform& platform)
    : platform_(platform), timer_(shortcuts.timerManager), quit_(shortcuts.quitApplicationCommand),
      close_(shortcuts.closeWindowCommand), summary_(new QLabel), bar_(new TimerProgressBar(this)),
      hint_(new SecondaryLabel({}, regularFont)),
      refreshOnce_(platform.runLoop, [this] { refresh(); }) {
    const auto refreshSoon = [this] { refreshOnce_.schedule(); };
    timerChanges_ = timer_.objectWillChange.subscribe(refreshSoon);
    preferencesChanges_ = timer_.preferencesViewModel.objectWillChange.subscribe(refreshSoon);
    quitChanges_ = quit_.observe(refreshSoon);
    closeChanges_ = close_.observe(refreshSoon);
    summary_->setTextFormat(Qt::PlainText);
    summary_->setAlignment(Qt::AlignCenter);
    summary_->setWordWrap(true);
    hint_->setAlignment(Qt::AlignCenter);
    bar_->setObjectName(QStringLiteral("holdBar"));
    bar_->setFixedHeight(barHeight);
    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->addWidget(summary_);
    stack->addWidget(bar_);
    stack->addWidget(hint_);
    refresh();
}

HoldLesson::~HoldLesson() {
    timer_.setRehearsing(false);
}

void HoldLesson::setOpen(bool isOpen) {
    timer_.setRehearsing(isOpen);
}

void HoldLesson::refresh() {
    summary_->setText(summary());
    bar_->setProgress(timer_.wasRehearsed.get() ? 1.0 : timer_.progress.get());
    const bool canBeTried = quit_.isRegistered() || close_.isRegistered();
    const QString hint =
        timer_.wasRehearsed.get() ? tr("That is all.") : tr("Try it: here it closes nothing.");
    hint_->setText(canBeTried ? hint : QString());
}

QString HoldLesson::combination(const KeyCommandShortcut& shortcut) const {
    const auto key = shortcut.key();
    return key ? QString::fromStdString(nativeName(*key, shortcut.modifiers(),
                                                   platform_.keyboardLayout, platform_.localizer))
               : QString();
}

QString HoldLesson::summary() const {
    const QString seconds =
        QLocale().toString(timer_.preferencesViewModel.delayUntilActivation(), 'g', 3);
    const QString quitKeys = combination(quit_);
    const QString closeKeys = combination(close_);
    QStringList lines;
    if (quit_.isRegistered()) {
        //: %1 is a key combination, %2 a number of seconds such as 2 or 1.4
        lines += tr("Hold %1 for %2 seconds to quit.").arg(quitKeys, seconds);
    } else if (!quitKeys.isEmpty()) {
        lines += tr("%1 is not guarded: another program has taken it, or this keyboard lacks it.")
                     .arg(quitKeys);
    }
    if (close_.isRegistered()) {
        lines += tr("Hold %1 for %2 seconds to close a window.").arg(closeKeys, seconds);
    }
    return lines.isEmpty() ? tr("No shortcut is guarded yet: set one in the Preferences.")
                           : lines.join(QLatin1Char('\n'));
}

} // namespace dwellkey
