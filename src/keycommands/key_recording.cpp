// SPDX-License-Identifier: MIT
#include "keycommands/key_recording.h"

#include "keycommands/key_names.h"

#include <utility>

namespace dwellkey {
namespace {

using namespace std::chrono_literals;

// Nobody types a shortcut any more: the shortcut guards again and the screen can lock. It is also
// the way out for somebody who has no mouse, as every key is taken.
constexpr auto recordingPatience = 30s;

// A key that is down repeats itself more often than that, or not at all.
constexpr auto releasePatience = 1s;

// A repeat begins with a release that cannot always be told from the real one.
constexpr auto repeatPatience = 50ms;

std::string typeShortcut(const Localizer& localizer) {
    return localizer.localized("KeyRecorder", "Type shortcut");
}

std::string recordShortcut(const Localizer& localizer) {
    return localizer.localized("KeyRecorder", "Record shortcut");
}

} // namespace

KeyRecording::KeyRecording(std::unique_ptr<RecordableShortcut> shortcut, Platform& platform)
    : platform_(platform), shortcut_(std::move(shortcut)),
      shortcutChanges_(shortcut_->observe([this] { didChange.emit(); })),
      captureMustEnd_(platform.keyCapture.mustEnd.subscribe([this] { interrupt(); })) {
    shortcut_->registerShortcut();
}

KeyRecording::~KeyRecording() {
    shortcutChanges_.cancel();
    if (watchesKeys()) {
        endCapture();
    }
    if (state_ == RecordingState::recording) {
        shortcut_->registerShortcut();
    }
}

std::string KeyRecording::label() const {
    if (state_ == RecordingState::recording) {
        return typeShortcut(platform_.localizer);
    }
    if (!shortcut_->isRegistered() || !shortcut_->key()) {
        return recordShortcut(platform_.localizer);
    }
    return stringValue(shortcut_->modifiers())
           + stringValue(*shortcut_->key(), platform_.keyboardLayout);
}

std::vector<std::string> KeyRecording::fixedLabels() const {
    return {typeShortcut(platform_.localizer), recordShortcut(platform_.localizer)};
}

RecorderImage KeyRecording::image() const {
    if (state_ == RecordingState::recording) {
        return RecorderImage::escape;
    }
    return shortcut_->isRegistered() ? RecorderImage::delete_ : RecorderImage::record;
}

bool KeyRecording::showsCombination() const {
    return state_ == RecordingState::idle && shortcut_->isRegistered();
}

std::string KeyRecording::nativeName() const {
    const auto key = shortcut_->key();
    const Modifiers modifiers = shortcut_->modifiers();
    return !key || modifiers.empty()
               ? std::string()
               : dwellkey::nativeName(*key, modifiers, platform_.keyboardLayout,
                                      platform_.localizer);
}

std::string KeyRecording::failureText() const {
    const auto failure = shortcut_->registrationFailure();
    if (!failure || state_ == RecordingState::recording) {
        return {};
    }
    const Localizer& localizer = platform_.localizer;
    switch (*failure) {
    case RegistrationFailure::takenByAnotherProgram:
        return localizer.localized("KeyRecorder", "Another program has taken this shortcut.");
    case RegistrationFailure::takenByAnotherCommand:
        return localizer.localized("KeyRecorder", "Dwellkey uses this shortcut already.");
    case RegistrationFailure::notOnThisKeyboard:
        return localizer.localized("KeyRecorder", "This keyboard cannot type this shortcut.");
    case RegistrationFailure::unreadable:
        return localizer.localized("KeyRecorder",
                                   "The stored shortcut cannot be read. Record it again.");
    case RegistrationFailure::serviceFailed:
        break;
    }
    return localizer.localized("KeyRecorder", "The desktop refused this shortcut.");
}

std::string KeyRecording::accessibleName(RecorderSegment segment) const {
    const Localizer& localizer = platform_.localizer;
    if (segment == RecorderSegment::shortcut) {
        return showsCombination() ? nativeName() : label();
    }
    switch (image()) {
    case RecorderImage::delete_:
        return localizer.localized("KeyRecorder", "Clear shortcut");
    case RecorderImage::escape:
        return localizer.localized("KeyRecorder", "Stop recording");
    case RecorderImage::record:
        break;
    }
    return recordShortcut(localizer);
}

void KeyRecording::press(RecorderSegment segment) {
    const bool isButton = segment == RecorderSegment::button;
    if (state_ == RecordingState::recording) {
        if (isButton) {
            setState(RecordingState::idle);
        }
    } else if (isButton && shortcut_->isRegistered()) {
        shortcut_->clear();
    } else {
        platform_.keyCapture.mustEnd.emit(); // another recorder's
        setState(RecordingState::recording);
    }
    if (state_ == RecordingState::idle) {
        shortcut_->registerShortcut();
    } else {
        shortcut_->suspendShortcut(); // or the old one would fire while the new one is typed
    }
}

bool KeyRecording::watchesKeys() const {
    return (state_ == RecordingState::recording && !isExplaining_) || recordedKeyDown_;
}

void KeyRecording::keyDown(const KeyStroke& stroke) {
    if (!watchesKeys()) {
        return;
    }
    if (state_ == RecordingState::idle) {
        // Another key ends the repeats of the recorded one: somebody types on, and must get
        // through.
        if (stroke.keyCode == recordedKeyDown_) {
            waitForKeys(releasePatience);
        }
        return;
    }
    waitForKeys(recordingPatience);
    if (stroke.isRepeat) {
        return;
    }
    const auto key = stroke.keyCode ? keyFromRawValue(*stroke.keyCode) : std::nullopt;
    if (!key) {
        platform_.beeper.beep();
        return;
    }
    Modifiers modifiers = modifiersFromEventFlags(stroke.eventFlags);
    if (const auto refusal = refusalOf(*key, modifiers, platform_)) {
        platform_.beeper.beep();
        refuse(*refusal);
    } else {
        record(*key, std::move(modifiers));
    }
}

void KeyRecording::keyUp(const KeyStroke& stroke) {
    if (recordedKeyDown_ && stroke.keyCode == recordedKeyDown_ && !stroke.isRepeat) {
        waitForKeys(repeatPatience);
    }
}

void KeyRecording::mouseDown() {
    if (!shortcut_->menuIsOpen()) {
        didChange.emit();
    }
}

void KeyRecording::interrupt() {
    if (state_ == RecordingState::recording) {
        setState(RecordingState::idle);
        shortcut_->registerShortcut();
    } else if (recordedKeyDown_) {
        endCapture();
        didChange.emit();
    }
}

void KeyRecording::retryRegistration() {
    if (state_ == RecordingState::idle && shortcut_->registrationFailure()) {
        shortcut_->registerShortcut();
    }
}

void KeyRecording::setState(RecordingState state) {
    state_ = state;
    if (state == RecordingState::recording) {
        beginCapture();
    } else if (!recordedKeyDown_) {
        endCapture();
    }
    didChange.emit();
}

/// The capture stays until the key is up: its next repeat would press the new hot key.
void KeyRecording::record(Key key, Modifiers modifiers) {
    shortcut_->set(key, std::move(modifiers));
    shortcut_->registerShortcut();
    failureReason_ = {};
    recordedKeyDown_ = static_cast<std::uint32_t>(rawValue(key));
    setState(RecordingState::idle);
    waitForKeys(releasePatience);
}

void KeyRecording::refuse(const Refusal& refusal) {
    const bool isNew = refusal.reason.messageText != failureReason_.messageText
                       || refusal.reason.infoText != failureReason_.infoText;
    if (isNew) {
        failureReason_ = refusal.reason;
    }
    if (refusal.kind == RefusalKind::typingMistake) {
        ++failureReason_.failureCount;
    }
    if (failureReason_.failureCount >= FailureReason::countThatExplains) {
        if (refusal.kind == RefusalKind::typingMistake) {
            failureReason_ = {};
        } else {
            failureReason_.failureCount = 0;
        }
        explain(refusal.reason);
    }
}

/// The last thing that its callers do: the recording may be gone when the alert is answered.
void KeyRecording::explain(const FailureReason& reason) {
    const std::weak_ptr<const bool> life = life_;
    isExplaining_ = true;
    endCapture(); // the answer is the alert's
    didChange.emit();
    platform_.alerts.runModal({reason.messageText,
                               reason.infoText,
                               AlertStyle::warning,
                               {platform_.localizer.localized("KeyRecorder", "OK")}});
    if (life.expired()) {
        return;
    }
    isExplaining_ = false;
    if (state_ == RecordingState::recording) {
        beginCapture();
        didChange.emit();
    }
}

void KeyRecording::beginCapture() {
    recordedKeyDown_.reset();
    platform_.keyCapture.begin(window_);
    waitForKeys(recordingPatience);
}

void KeyRecording::endCapture() {
    recordedKeyDown_.reset();
    patience_.cancel();
    platform_.keyCapture.end();
}

void KeyRecording::waitForKeys(std::chrono::nanoseconds patience) {
    patience_ = platform_.runLoop.repeat(patience, [this] { interrupt(); });
}

} // namespace dwellkey
