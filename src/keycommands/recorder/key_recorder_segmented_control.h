// SPDX-License-Identifier: MIT
// The two segments of a recorder. It mirrors a `KeyRecording` and forwards to it.
#pragma once

#include "keycommands/key_recording.h"
#include "keycommands/recorder/bezel_style.h"
#include "keycommands/recorder/key_recorder_segment.h"
#include "keycommands/recorder/local_event_monitor.h"
#include "keycommands/recorder/template_image.h"

#include <QString>
#include <QWidget>
#include <optional>

class QHBoxLayout;
class QKeyEvent;

namespace dwellkey {

/// At least 140 by 24 points, and never narrower than its texts. The second segment is square.
class KeyRecorderSegmentedControl final : public QWidget {
    Q_OBJECT

public:
    /// The platform must outlive the control.
    KeyRecorderSegmentedControl(std::unique_ptr<RecordableShortcut> shortcut, Platform& platform,
                                QWidget* parent = nullptr);
    ~KeyRecorderSegmentedControl() override;

    /// What the first segment shows. A text that was set replaces the automatic one for good; an
    /// attributed one is markup, and goes before a plain one.
    [[nodiscard]] QString label() const;
    void setLabel(const QString& label);
    [[nodiscard]] const std::optional<QString>& attributedLabel() const { return attributedLabel_; }
    void setAttributedLabel(const QString& markup);

    void setBezelStyle(BezelStyle style);

    /// What the recorder is for ("Quit App Shortcut"), said before what each segment shows.
    void setPurpose(const QString& purpose);

    [[nodiscard]] KeyRecording& recording() { return recording_; }
    [[nodiscard]] KeyRecorderSegment& segment(RecorderSegment which) {
        return which == RecorderSegment::shortcut ? shortcutSegment_ : buttonSegment_;
    }

    /// Shows what the recording says now.
    void refresh();

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void followApplication();
    void refreshWidth();
    void refreshAccessibility();
    [[nodiscard]] const TemplateImage& image() const;
    QEvent* handleKey(QEvent* event);
    [[nodiscard]] bool isRepeat(const QKeyEvent& event) const;

    Platform& platform_;
    KeyRecording recording_;
    LocalEventMonitor keyDownMonitor_; // and up: until the recorded key is, it is ours
    LocalEventMonitor mouseDownMonitor_;
    std::optional<QString> attributedLabel_;
    std::optional<QString> label_;
    QString purpose_;
    TemplateImage deleteImage_;
    TemplateImage escapeImage_;
    TemplateImage recordImage_;
    QHBoxLayout& layout_;
    KeyRecorderSegment& shortcutSegment_;
    KeyRecorderSegment& buttonSegment_;
    struct Release {
        quint32 nativeScanCode = 0;
        quint64 timestamp = 0; // of the display; 0 where it tells none
        bool operator==(const Release&) const = default;
    };
    Release lastRelease_;
    Subscription changes_;
};

} // namespace dwellkey
