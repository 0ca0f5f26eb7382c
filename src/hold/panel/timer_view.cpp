// SPDX-License-Identifier: MIT
#include "hold/panel/timer_view.h"

#include "hold/panel/timer_progress_bar.h"

#include <QEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QVBoxLayout>
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
constexpr float translucency = 0.94F;
constexpr float edgeAlpha = 0.18F;

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

/// The screen whose native pixels hold the point.
QScreen* screenAt(const PanelSupport::Point& point) {
    const auto screens = QGuiApplication::screens();
    const auto found = std::ranges::find_if(screens, [&](const QScreen* screen) {
        const QRect logical = screen->geometry(); // its origin is native, its size is not
        const QSizeF size = QSizeF(logical.size()) * screen->devicePixelRatio();
        return QRect(logical.topLeft(), size.toSize()).contains(point.x, point.y);
    });
    return found == screens.end() ? nullptr : *found;
}

} // namespace

TimerView::TimerView(TimerManager& timerManager, RunLoop& runLoop, PanelSupport& support)
    : QWidget(nullptr, Qt::Window | Qt::BypassWindowManagerHint | Qt::FramelessWindowHint
                           | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus),
      timerManager_(timerManager), support_(support), title_(new QLabel(this)),
      bar_(new TimerProgressBar(this)), refreshOnce_(runLoop, [this] { refresh(); }),
      changes_(timerManager.objectWillChange.subscribe([this] { refreshOnce_.schedule(); })) {
    setWindowTitle(tr("Timer"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_X11NetWmWindowTypeNotification);
    setAttribute(Qt::WA_OpaquePaintEvent, false);
    setFocusPolicy(Qt::NoFocus);
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
    if (isVisible()) {
        raise();
        return;
    }
    didSetupWindow_ = false;
    setUpWindow();
    if (timerManager_.isTimerViewVisible.get()) {
        show();
    }
}

/// The whole view follows from the model; runs once per turn of the loop in which it changed.
void TimerView::refresh() {
    const auto title =
        QCoreApplication::translate("TimerView", timerManager_.timerViewTitle.get().c_str());
    if (title != title_->text()) {
        title_->setText(title);
        fitToTitle();
    }
    bar_->setProgress(timerManager_.progress.get());
    if (isVisible() && !timerManager_.isTimerViewVisible.get()) {
        hide();
    }
}

void TimerView::setUpWindow() {
    useBackdrop(support_.isComposited());
    if (!didSetupWindow_) {
        centre();
        didSetupWindow_ = true;
    }
}

/// Translucency belongs to the native window for life, so a compositor that came or went since the
/// last hold means a new one.
void TimerView::useBackdrop(bool composited) {
    if (composited_ == composited) {
        return;
    }
    if (composited_) {
        destroy();
    }
    composited_ = composited;
    setAttribute(Qt::WA_TranslucentBackground, composited);
    fitToTitle();
    create();
    const auto native = static_cast<std::uint32_t>(winId());
    support_.keepAbove(native);
    if (composited) {
        support_.blurBehind(native);
    }
}

/// A long title (another language, a wide font) makes the panel wider, never cut off.
void TimerView::fitToTitle() {
    const int wanted = title_->sizeHint().width() + 2 * sidePadding;
    setFixedSize(std::max(wanted, defaultSize.width()),
                 std::max(layout()->minimumSize().height(), defaultSize.height()));
}

void TimerView::centre() {
    const auto active = support_.activeWindowCentre();
    QScreen* screen = active ? screenAt(*active) : nullptr;
    if (screen == nullptr) {
        screen = QGuiApplication::primaryScreen();
    }
    if (screen == nullptr) {
        return; // no screen at all: nowhere to move it
    }
    const QRect available = screen->availableGeometry();
    move(available.topLeft()
         + QPoint((available.width() - width()) / 2, (available.height() - height()) / 2));
}

void TimerView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QColor backdrop = palette().color(QPalette::Active, QPalette::Window);
    backdrop.setAlphaF(composited_.value_or(false) ? translucency : 1.0F);
    QColor edge = palette().color(QPalette::Active, QPalette::WindowText);
    edge.setAlphaF(edgeAlpha);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edge, 1));
    painter.setBrush(backdrop);
    // Without a compositor there is nothing to see through at the corners.
    const double radius = composited_.value_or(false) ? cornerRadius : 0.0;
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

// The window manager does not know this window, so dragging it by its background is ours to do.

void TimerView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        dragOffset_ = event->globalPosition().toPoint() - pos();
    }
}

void TimerView::mouseMoveEvent(QMouseEvent* event) {
    if (dragOffset_) {
        move(event->globalPosition().toPoint() - *dragOffset_);
    }
}

void TimerView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        dragOffset_.reset();
    }
}

void TimerView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ApplicationFontChange) {
        title_->setFont(titleFont(QGuiApplication::font()));
        fitToTitle();
    }
}

} // namespace dwellkey
