// SPDX-License-Identifier: MIT
// The recorder without its looks: what it shows, what a press of it does, which keys it takes.
// Main thread only. std only.
#pragma once

#include "keycommands/recordable_shortcut.h"
#include "keycommands/recording_refusal.h"
#include "platform/platform.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace dwellkey {

enum class RecordingState { recording, idle };

enum class RecorderSegment { shortcut, button };

/// What the button shows, and so what it does.
enum class RecorderImage { delete_, escape, record };

/// A key as the application got it. A modifier key by itself is none.
struct KeyStroke {
    std::optional<std::uint32_t> keyCode; // virtual key code; absent for a key that has none
    std::uint64_t eventFlags = 0;         // of the modifiers
    bool isRepeat = false;                // the key was down already
};

/// While it records, the shortcut is not registered, the whole keyboard is captured and each key
/// that goes down is judged. A combination that is taken ends the recording; refused ones beep, and
/// explain themselves in a modal alert.
class KeyRecording {
public:
    /// Registers the shortcut. The platform must outlive the recording.
    KeyRecording(std::unique_ptr<RecordableShortcut> shortcut, Platform& platform);
    KeyRecording(const KeyRecording&) = delete;
    KeyRecording& operator=(const KeyRecording&) = delete;
    /// Ends a recording as `interrupt` does. Allowed while its alert is open.
    ~KeyRecording();

    [[nodiscard]] RecordingState state() const { return state_; }
    [[nodiscard]] std::string label() const;
    /// The labels that name no combination.
    [[nodiscard]] std::vector<std::string> fixedLabels() const;
    [[nodiscard]] RecorderImage image() const;
    /// The combination in the desktop's words ("Ctrl+Q"); "" while there is none.
    [[nodiscard]] std::string nativeName() const;

    /// Whether the first segment shows a combination, not an invitation.
    [[nodiscard]] bool showsCombination() const;

    /// Why the combination could not be registered, or read, for the user; "" when it could, or
    /// while recording.
    [[nodiscard]] std::string failureText() const;
    /// What a segment says of itself to somebody who does not see it.
    [[nodiscard]] std::string accessibleName(RecorderSegment segment) const;

    /// Emitted after any of the above may have changed, and `watchesKeys`.
    Signal<> didChange;

    /// The native window that shows the recorder, which must be on the screen during `press`.
    void setWindow(std::uint32_t nativeWindow) { window_ = nativeWindow; }

    void press(RecorderSegment segment);

    /// Whether every key that the application gets belongs to the recorder: while it records (but
    /// not while its alert is open), and until the key that it recorded is up again.
    [[nodiscard]] bool watchesKeys() const;
    void keyDown(const KeyStroke& stroke);
    void keyUp(const KeyStroke& stroke);
    /// The mouse went down somewhere in the application.
    void mouseDown();

    /// Ends a recording without change: its window went, or the user turned to something else.
    void interrupt();
    /// Tries again to register a combination that could not be.
    void retryRegistration();

private:
    void setState(RecordingState state);
    void record(Key key, Modifiers modifiers);
    void refuse(const Refusal& refusal);
    void explain(const FailureReason& reason);
    void beginCapture();
    void endCapture();
    void waitForKeys(std::chrono::nanoseconds patience);

    Platform& platform_;
    std::unique_ptr<RecordableShortcut> shortcut_;
    std::uint32_t window_ = 0;
    RecordingState state_ = RecordingState::idle;
    FailureReason failureReason_;
    bool isExplaining_ = false;
    std::optional<std::uint32_t> recordedKeyDown_; // until it goes up
    Subscription patience_;
    Subscription shortcutChanges_;
    Subscription captureMustEnd_;
    std::shared_ptr<const bool> life_ = std::make_shared<const bool>(true);
};

} // namespace dwellkey
