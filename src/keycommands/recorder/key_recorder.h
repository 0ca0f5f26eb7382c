// SPDX-License-Identifier: MIT
// The control with which the user sets a shortcut. Main thread only.
#pragma once

#include "keycommands/key_command.h"
#include "keycommands/recordable_shortcut.h"
#include "keycommands/recorder/bezel_style.h"
#include "keycommands/recorder/key_recorder_segmented_control.h"
#include "platform/platform.h"

#include <QString>
#include <QWidget>
#include <memory>

namespace dwellkey {

class KeyRecorderBaseControl : public QWidget {
    Q_OBJECT

public:
    [[nodiscard]] KeyRecorderSegmentedControl& segmentedControl() const {
        return *segmentedControl_;
    }

    [[nodiscard]] BezelStyle bezelStyle() const { return bezelStyle_; }
    void setBezelStyle(BezelStyle style);

protected:
    KeyRecorderBaseControl(std::unique_ptr<RecordableShortcut> shortcut, Platform& platform,
                           QWidget* parent);

private:
    KeyRecorderSegmentedControl* segmentedControl_; // fills the control
    BezelStyle bezelStyle_ = BezelStyle::rounded;
};

class KeyRecorder final : public KeyRecorderBaseControl {
    Q_OBJECT

public:
    /// Registers the command, so that a recorder always shows a live one. The platform, and the
    /// command's registry, must outlive the recorder.
    explicit KeyRecorder(KeyCommand keyCommand, Platform& platform = Platform::shared(),
                         QWidget* parent = nullptr);
    /// For a shortcut that is no key command.
    explicit KeyRecorder(std::unique_ptr<RecordableShortcut> shortcut,
                         Platform& platform = Platform::shared(), QWidget* parent = nullptr);

    /// The text of the first segment; setting it replaces the automatic one.
    [[nodiscard]] QString stringValue() const { return segmentedControl().label(); }
    void setStringValue(const QString& text) { segmentedControl().setLabel(text); }
    /// The same as markup.
    [[nodiscard]] QString attributedStringValue() const;
    void setAttributedStringValue(const QString& markup) {
        segmentedControl().setAttributedLabel(markup);
    }

    /// Whether a `KeyRecorderView` shows it.
    bool hasBackingView = false;
};

} // namespace dwellkey
