// SPDX-License-Identifier: MIT
// The recorder as a form shows it. Main thread only.
#pragma once

#include "keycommands/recorder/key_recorder.h"

class QLabel;

namespace dwellkey {

/// A recorder, and under it, when its combination could not be registered, which and why. The first
/// segment is its focus proxy, so it may be a label's buddy. The accessible name that a window sets
/// on it ("Quit App Shortcut") leads the names of its segments.
class KeyRecorderView final : public QWidget {
    Q_OBJECT

public:
    /// The platform, and the command's registry, must outlive the view.
    explicit KeyRecorderView(KeyCommand keyCommand, Platform& platform = Platform::shared(),
                             QWidget* parent = nullptr);
    /// For a shortcut that is no key command.
    explicit KeyRecorderView(std::unique_ptr<RecordableShortcut> shortcut,
                             Platform& platform = Platform::shared(), QWidget* parent = nullptr);

    [[nodiscard]] KeyRecorder& recorder() const { return *recorder_; }

protected:
    bool event(QEvent* event) override;

private:
    void refresh();

    KeyRecorder* recorder_;
    QLabel* failure_;
    Subscription changes_;
};

/// Passes a style down to every recorder view in a widget, those that are added later included.
/// The innermost widget that was given a style decides; without one it is `rounded`.
class KeyRecorderBezelStyle {
public:
    explicit KeyRecorderBezelStyle(BezelStyle style) : style_(style) {}

    void applyTo(QWidget& widget) const;

    /// What was passed down to this widget.
    [[nodiscard]] static BezelStyle of(const QWidget& widget);

private:
    BezelStyle style_;
};

} // namespace dwellkey
