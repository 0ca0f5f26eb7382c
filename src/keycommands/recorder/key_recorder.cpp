// SPDX-License-Identifier: MIT
#include "keycommands/recorder/key_recorder.h"

#include "keycommands/key_command_shortcut.h"

#include <QVBoxLayout>
#include <utility>

namespace dwellkey {

KeyRecorderBaseControl::KeyRecorderBaseControl(std::unique_ptr<RecordableShortcut> shortcut,
                                               Platform& platform, QWidget* parent)
    : QWidget(parent),
      segmentedControl_(new KeyRecorderSegmentedControl(std::move(shortcut), platform, this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(segmentedControl_);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusProxy(segmentedControl_);
}

void KeyRecorderBaseControl::setBezelStyle(BezelStyle style) {
    bezelStyle_ = style;
    segmentedControl_->setBezelStyle(style);
}

KeyRecorder::KeyRecorder(KeyCommand keyCommand, Platform& platform, QWidget* parent)
    : KeyRecorder(std::make_unique<KeyCommandShortcut>(std::move(keyCommand)), platform, parent) {}

KeyRecorder::KeyRecorder(std::unique_ptr<RecordableShortcut> shortcut, Platform& platform,
                         QWidget* parent)
    : KeyRecorderBaseControl(std::move(shortcut), platform, parent) {}

QString KeyRecorder::attributedStringValue() const {
    return segmentedControl().attributedLabel().value_or(stringValue().toHtmlEscaped());
}

} // namespace dwellkey
