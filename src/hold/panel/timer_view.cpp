// SPDX-License-Identifier: MIT
#include "hold/panel/timer_view.h"

#include "hold/panel/timer_progress_bar.h"

#include <QEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QPixmap>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <array>

namespace dwellkey {
namespace {

constexpr QSize defaultSize(500, 130);
constexpr int sidePadding = 24;
constexpr int edgePadding = 32; // sets title and bar in the middle of the default height
constexpr int spacing = 8;
constexpr int titlePixels = 40;
constexpr double cornerRadius = 12.0;

// What the timer manager says, for the translators' tools to find.
[[maybe_unused]] constexpr std::array translatableTitles{
    QT_TRANSLATE_NOOP("TimerView", "Hold to Quit App"),
    QT_TRANSLATE_NOOP("TimerView", "Hold to Close Window"),
};

QFont titleFont(const QFont& base) {
    QFont font = base;
    font.setPixelSize(titlePixels);
    font.setWeight(QFont::DemiBold);
    return font;
}

} // namespace

TimerView::TimerView(TimerManager& timerManager, RunLoop& runLoop, PanelSupport& support)
    : QtPanelWindow(support, cornerRadius), timerManager_(timerManager), title_(new QLabel(this)),
      bar_(new TimerProgressBar(this)), refreshOnce_(runLoop, [this] { refresh(); }),
      changes_(timerManager.objectWillChange.subscribe([this] { refreshOnce_.schedule(); })) {
    setWindowTitle(tr("Timer"));
    title_->setAlignment(Qt::AlignCenter);
    title_->setTextFormat(Qt::PlainText);
    title_->setFont(titleFont(font()));
    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(sidePadding, edgePadding, sidePadding, edgePadding);
    stack->setSpacing(spacing);
    stack->addWidget(title_);
    stack->addWidget(bar_, 1);
}

TimerView::~TimerView() = default;

void TimerView::prepare() {
    refresh();
    setUpWindow();
    QPixmap scratch(size()); // loads the font and its glyphs
    render(&scratch);
}

void TimerView::open() {
    refresh();
    if (isVisible() && windowHandle()->isExposed()) {
        raise();
        return;
    }
    hide(); // also when it is somebody else who took it off the screen
    didSetupWindow_ = false;
    setUpWindow();
    if (timerManager_.isPanelWanted()) {
        show();
    }
}

/// The whole view follows from the model; runs once per turn of the loop in which it changed.
void TimerView::refresh() {
    const auto title =
        QCoreApplication::translate("TimerView", timerManager_.timerViewTitle.get().c_str());
    if (title != title_->text()) {
        title_->setText(title);
        fitToContent();
    }
    bar_->setProgress(timerManager_.progress.get());
    if (isVisible() && !timerManager_.isPanelWanted()) {
        hide();
    }
}

void TimerView::setUpWindow() {
    followCompositor();
    if (!didSetupWindow_) {
        centre();
        didSetupWindow_ = true;
    }
}

/// A long title (another language, a wide font) makes the panel wider, never cut off.
void TimerView::fitToContent() {
    const int wanted = title_->sizeHint().width() + 2 * sidePadding;
    setFixedSize(std::max(wanted, defaultSize.width()),
                 std::max(layout()->minimumSize().height(), defaultSize.height()));
}

void TimerView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ApplicationFontChange) {
        title_->setFont(titleFont(QGuiApplication::font()));
        fitToContent();
    }
}

} // namespace dwellkey
