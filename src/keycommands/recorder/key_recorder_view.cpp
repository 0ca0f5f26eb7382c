// SPDX-License-Identifier: MIT
#include "keycommands/recorder/key_recorder_view.h"

#include "keycommands/key_command_shortcut.h"
#include "views/common/secondary_label.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <QVariant>
#include <utility>

namespace dwellkey {
namespace {
constexpr const char* styleProperty = "keyRecorderBezelStyle";
constexpr int failureSpacing = 2;

/// Keeps its order from left to right where the language has another.
QString isolated(const QString& text) {
    constexpr QChar leftToRightIsolate(0x2066);
    constexpr QChar popDirectionalIsolate(0x2069);
    return text.isEmpty() ? text : leftToRightIsolate + text + popDirectionalIsolate;
}

} // namespace

KeyRecorderView::KeyRecorderView(KeyCommand keyCommand, Platform& platform, QWidget* parent)
    : KeyRecorderView(std::make_unique<KeyCommandShortcut>(std::move(keyCommand)), platform,
                      parent) {}

KeyRecorderView::KeyRecorderView(std::unique_ptr<RecordableShortcut> shortcut, Platform& platform,
                                 QWidget* parent)
    : QWidget(parent), recorder_(new KeyRecorder(std::move(shortcut), platform, this)),
      failure_(new SecondaryLabel({}, regularFont, this)) {
    failure_->setWordWrap(false);
    recorder_->hasBackingView = true;
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(failureSpacing);
    column->addWidget(recorder_, 0, Qt::AlignLeading);
    column->addWidget(failure_);
    setFocusProxy(recorder_);
    changes_ = recorder_->segmentedControl().recording().didChange.subscribe([this] { refresh(); });
    refresh();
}

void KeyRecorderView::refresh() {
    const KeyRecording& recording = recorder_->segmentedControl().recording();
    const QString failure = QString::fromStdString(recording.failureText());
    const QString name = QString::fromStdString(recording.nativeName());
    failure_->setText(name.isEmpty() || failure.isEmpty()
                          ? failure
                          : KeyRecorderSegmentedControl::tr("%1: %2", "purpose: shortcut")
                                .arg(isolated(name), failure));
    failure_->setVisible(!failure.isEmpty());
}

bool KeyRecorderView::event(QEvent* event) {
    if (event->type() == QEvent::Polish || event->type() == QEvent::Show
        || event->type() == QEvent::ParentChange) {
        recorder_->setBezelStyle(KeyRecorderBezelStyle::of(*this));
        recorder_->segmentedControl().setPurpose(accessibleName());
    }
    return QWidget::event(event);
}

void KeyRecorderBezelStyle::applyTo(QWidget& widget) const {
    widget.setProperty(styleProperty, static_cast<int>(style_));
    for (const KeyRecorderView* view : widget.findChildren<KeyRecorderView*>()) {
        view->recorder().setBezelStyle(of(*view));
    }
}

BezelStyle KeyRecorderBezelStyle::of(const QWidget& widget) {
    for (const QWidget* at = &widget; at != nullptr; at = at->parentWidget()) {
        if (const QVariant style = at->property(styleProperty); style.isValid()) {
            return static_cast<BezelStyle>(style.toInt());
        }
    }
    return BezelStyle::rounded;
}

} // namespace dwellkey
