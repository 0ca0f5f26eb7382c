// SPDX-License-Identifier: MIT
#include "keycommands/recorder/key_recorder_segmented_control.h"

#include "keycommands/recorder/segment_bezel.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <algorithm>
#include <utility>

namespace dwellkey {
namespace {

/// Keys that are only held while another one is pressed.
bool isModifierKey(int key) {
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_CapsLock:
    case Qt::Key_Mode_switch:
        return true;
    default:
        return false;
    }
}

/// The toolkit's modifiers are named after this desktop's keys.
std::uint64_t eventFlagsOf(Qt::KeyboardModifiers held) {
    Modifiers modifiers;
    if (held.testFlag(Qt::MetaModifier)) {
        modifiers.push_back(Modifier::control);
    }
    if (held.testFlag(Qt::AltModifier)) {
        modifiers.push_back(Modifier::option);
    }
    if (held.testFlag(Qt::ShiftModifier)) {
        modifiers.push_back(Modifier::shift);
    }
    if (held.testFlag(Qt::ControlModifier)) {
        modifiers.push_back(Modifier::command);
    }
    return eventFlags(modifiers);
}

} // namespace

KeyRecorderSegmentedControl::KeyRecorderSegmentedControl(
    std::unique_ptr<RecordableShortcut> shortcut, Platform& platform, QWidget* parent)
    : QWidget(parent), platform_(platform), recording_(std::move(shortcut), platform),
      keyDownMonitor_(LocalEvent::keyDown | LocalEvent::keyUp,
                      [this](QEvent* event) { return handleKey(event); }),
      mouseDownMonitor_(LocalEvent::leftMouseDown,
                        [this](QEvent* event) {
                            recording_.mouseDown();
                            return event;
                        }),
      deleteImage_(makeDeleteImage()), escapeImage_(makeEscapeImage(font())),
      recordImage_(makeRecordImage()), layout_(*new QHBoxLayout(this)),
      shortcutSegment_(*new KeyRecorderSegment(*this)),
      buttonSegment_(*new KeyRecorderSegment(*this)),
      changes_(recording_.didChange.subscribe([this] { refresh(); })) {
    layout_.setContentsMargins(0, 0, 0, 0);
    layout_.setSpacing(0);
    layout_.addWidget(&shortcutSegment_);
    layout_.addWidget(&buttonSegment_);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusProxy(&shortcutSegment_);
    for (const auto which : {RecorderSegment::shortcut, RecorderSegment::button}) {
        connect(&segment(which), &QAbstractButton::clicked, this,
                [this, which] { recording_.press(which); });
    }
    followApplication();
    refresh();
}

KeyRecorderSegmentedControl::~KeyRecorderSegmentedControl() = default;

/// A recording ends when the user turns to another program, and before this one ends, so that the
/// shortcut is stored again.
void KeyRecorderSegmentedControl::followApplication() {
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this,
            [this](Qt::ApplicationState state) {
                if (state != Qt::ApplicationActive) {
                    recording_.interrupt();
                }
            });
    connect(qGuiApp, &QGuiApplication::aboutToQuit, this, [this] { recording_.interrupt(); });
}

QString KeyRecorderSegmentedControl::label() const {
    if (label_) {
        return *label_;
    }
    // The model has symbols that no key of this desktop bears.
    const std::string name =
        recording_.showsCombination() ? recording_.nativeName() : std::string();
    return QString::fromStdString(name.empty() ? recording_.label() : name);
}

void KeyRecorderSegmentedControl::setLabel(const QString& label) {
    label_ = label;
    refresh();
}

void KeyRecorderSegmentedControl::setAttributedLabel(const QString& markup) {
    attributedLabel_ = markup;
    refresh();
}

void KeyRecorderSegmentedControl::setBezelStyle(BezelStyle style) {
    layout_.setSpacing(segmentSpacing(style));
    shortcutSegment_.setBezelStyle(style);
    buttonSegment_.setBezelStyle(style);
}

void KeyRecorderSegmentedControl::setPurpose(const QString& purpose) {
    purpose_ = purpose.trimmed();
    if (purpose_.endsWith(QLatin1Char(':'))) {
        purpose_.chop(1); // it is the label of a form
    }
    refreshAccessibility();
}

void KeyRecorderSegmentedControl::refresh() {
    if (attributedLabel_) {
        shortcutSegment_.showStyledText(*attributedLabel_);
    } else {
        shortcutSegment_.showText(label());
    }
    buttonSegment_.showImage(image());
    const bool isRecording = recording_.state() == RecordingState::recording;
    shortcutSegment_.setSelected(isRecording);
    if (recording_.watchesKeys()) {
        keyDownMonitor_.start();
    } else {
        keyDownMonitor_.stop();
    }
    if (isRecording) {
        mouseDownMonitor_.start();
    } else {
        mouseDownMonitor_.stop();
    }
    refreshWidth();
    refreshAccessibility();
}

/// Wide enough for every text, so that the window does not move about while the user records.
void KeyRecorderSegmentedControl::refreshWidth() {
    int width = shortcutSegment_.fontMetrics().horizontalAdvance(label());
    for (const std::string& text : recording_.fixedLabels()) {
        width = std::max(
            width, shortcutSegment_.fontMetrics().horizontalAdvance(QString::fromStdString(text)));
    }
    shortcutSegment_.setTextWidth(width);
}

void KeyRecorderSegmentedControl::refreshAccessibility() {
    for (const auto which : {RecorderSegment::shortcut, RecorderSegment::button}) {
        const QString name = QString::fromStdString(recording_.accessibleName(which));
        segment(which).setAccessibleName(
            purpose_.isEmpty() ? name : tr("%1: %2", "purpose: shortcut").arg(purpose_, name));
    }
    buttonSegment_.setToolTip(
        QString::fromStdString(recording_.accessibleName(RecorderSegment::button)));
}

const TemplateImage& KeyRecorderSegmentedControl::image() const {
    switch (recording_.image()) {
    case RecorderImage::delete_:
        return deleteImage_;
    case RecorderImage::escape:
        return escapeImage_;
    case RecorderImage::record:
        break;
    }
    return recordImage_;
}

QEvent* KeyRecorderSegmentedControl::handleKey(QEvent* event) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (isModifierKey(key.key())) {
        return event;
    }
    const KeyStroke stroke{platform_.keyCapture.keyCode(key.nativeScanCode()),
                           eventFlagsOf(key.modifiers()), isRepeat(key)};
    if (event->type() == QEvent::KeyRelease) {
        lastRelease_ = {key.nativeScanCode(), key.timestamp()};
        recording_.keyUp(stroke);
        return event;
    }
    recording_.keyDown(stroke);
    return nullptr;
}

/// A repeat is a release and a press of the same moment. The toolkit only sees that when both have
/// arrived by the time that it reads the first.
bool KeyRecorderSegmentedControl::isRepeat(const QKeyEvent& event) const {
    const Release same{event.nativeScanCode(), event.timestamp()};
    return event.isAutoRepeat()
           || (event.type() == QEvent::KeyPress && same.timestamp != 0 && same == lastRelease_);
}

bool KeyRecorderSegmentedControl::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        recording_.retryRegistration();
    } else if (event->type() == QEvent::WindowBlocked && recording_.watchesKeys()) {
        recording_.interrupt(); // a dialog that is not the recorder's own alert wants the keys
    } else if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        refreshWidth();
    }
    return QWidget::event(event);
}

void KeyRecorderSegmentedControl::showEvent(QShowEvent* event) {
    recording_.setWindow(static_cast<std::uint32_t>(window()->winId()));
    refresh();
    QWidget::showEvent(event);
}

void KeyRecorderSegmentedControl::hideEvent(QHideEvent* event) {
    recording_.interrupt();
    QWidget::hideEvent(event);
}

} // namespace dwellkey
