// SPDX-License-Identifier: MIT
#include "platform/x11/x11_hot_keys.h"

#include "platform/linux/evdev_key_codes.h"
#include "platform/x11/xcb_xkb.h"

#include <algorithm>
#include <chrono>

namespace dwellkey {
namespace {

using namespace std::chrono_literals;

// How often the server is asked whether the keys of a hold are still down. The events say so at
// once; this is for the release that never comes (a lost grab, a keyboard that was pulled out).
constexpr auto keyWatchInterval = 50ms;

// Changing a layout sends a burst of notices.
constexpr auto remakeDelay = 80ms;

constexpr std::uint16_t allModifiers = 0xff;

constexpr std::uint16_t xkbEvents =
    XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;

/// Without detectable auto-repeat each repeat would look like a release and a press. Returns the
/// extension's first event, or 0 where the server lacks it.
std::uint8_t setUpXkb(const X11Connection& connection) {
    auto* raw = connection.raw();
    const auto* extension = xcb_get_extension_data(raw, &xcb_xkb_id);
    if (extension == nullptr || extension->present == 0) {
        return 0;
    }
    const XcbPtr<xcb_xkb_use_extension_reply_t> use(
        xcb_xkb_use_extension_reply(raw, xcb_xkb_use_extension(raw, 1, 0), nullptr));
    if (!use || use->supported == 0) {
        return 0;
    }
    constexpr std::uint32_t flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    const XcbPtr<xcb_xkb_per_client_flags_reply_t> flags(xcb_xkb_per_client_flags_reply(
        raw, xcb_xkb_per_client_flags(raw, XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0), nullptr));
    constexpr std::uint16_t mapParts = XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP;
    xcb_xkb_select_events(raw, XCB_XKB_ID_USE_CORE_KBD, xkbEvents, 0, xkbEvents, mapParts, mapParts,
                          nullptr);
    return extension->first_event;
}

} // namespace

X11HotKeys::X11HotKeys(X11Connection& connection, RunLoop& runLoop, ErrorLog& errorLog)
    : connection_(connection), runLoop_(runLoop), errorLog_(errorLog),
      modifierMap_(X11ModifierMap::read(connection)), xkbFirstEvent_(setUpXkb(connection)),
      events_(connection.event.subscribe([this](const auto& event) { handleEvent(event); })) {
    connection_.drainLater();
}

X11HotKeys::~X11HotKeys() {
    for (const HotKey& hotKey : hotKeys_) {
        if (hotKey.isGrabbed) {
            giveBack(*hotKey.grab);
        }
    }
    connection_.flush();
}

OSStatus X11HotKeys::installHandler(Handler handler) {
    handler_ = std::move(handler);
    return noErr;
}

HotKeys::Registration X11HotKeys::registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                 EventHotKeyID id) {
    const auto grab = grabFor(keyCode, modifiers);
    if (!grab) {
        return {eventHotKeyInvalidErr, {}};
    }
    // The server lets one client grab the same combination twice, and then both would fire.
    const bool isOurs =
        std::ranges::any_of(hotKeys_, [&](const HotKey& other) { return other.grab == grab; });
    if (isOurs || !take(*grab)) {
        return {eventHotKeyExistsErr, {}};
    }
    const auto ref = EventHotKeyRef{++lastRef_};
    hotKeys_.push_back({ref, id, keyCode, modifiers, grab, true, false});
    applyStandDown(hotKeys_.back());
    connection_.flush();
    return {noErr, ref};
}

OSStatus X11HotKeys::unregisterHotKey(EventHotKeyRef ref) {
    const auto at = std::ranges::find(hotKeys_, ref, &HotKey::ref);
    if (at == hotKeys_.end()) {
        return eventHotKeyInvalidErr;
    }
    if (at->isGrabbed) {
        giveBack(*at->grab);
        connection_.flush();
    }
    hotKeys_.erase(at);
    for (PressedKey& pressed : pressed_) {
        if (pressed.ref == ref) {
            pressed.releaseSent = true; // nobody is left to hear of it
        }
    }
    return noErr;
}

void X11HotKeys::setStandsDown(EventHotKeyID id, bool standsDown) {
    const bool changed = standsDown ? standingDown_.emplace(id.signature, id.id).second
                                    : standingDown_.erase({id.signature, id.id}) > 0;
    const bool isLost = std::ranges::any_of(
        hotKeys_, [&](const HotKey& hotKey) { return hotKey.id == id && hotKey.lossReported; });
    if ((changed || isLost) && pressed_.empty()) {
        applyStandDowns();
    }
}

bool X11HotKeys::confirmPressed() {
    const auto down = queryPressedKeys(connection_);
    connection_.drain(); // all that the server sent before it answered has been read by now
    if (!down) {
        return false;
    }
    return std::ranges::any_of(pressed_, [&](const PressedKey& pressed) {
        return !pressed.releaseSent && isStillHeld(pressed, *down);
    });
}

void X11HotKeys::releaseAll() {
    releaseThose([](const PressedKey&) { return true; });
}

void X11HotKeys::handleEvent(const xcb_generic_event_t& event) {
    const auto type = static_cast<std::uint8_t>(event.response_type & 0x7fU);
    if (type == XCB_KEY_PRESS) {
        handleKeyPress(reinterpret_cast<const xcb_key_press_event_t&>(event)); // NOLINT: xcb's way
    } else if (type == XCB_KEY_RELEASE) {
        handleKeyRelease(reinterpret_cast<const xcb_key_release_event_t&>(event)); // NOLINT
    } else if (type == XCB_MAPPING_NOTIFY || (xkbFirstEvent_ != 0 && type == xkbFirstEvent_)) {
        handleMappingChange();
    }
}

void X11HotKeys::handleKeyPress(const xcb_key_press_event_t& event) {
    const auto isDown = std::ranges::find(pressed_, event.detail, &PressedKey::keycode);
    if (isDown != pressed_.end()) {
        return; // auto-repeat; the key has to go up before it can be pressed again
    }
    const Grab grab{event.detail, modifierMap_.relevantState(event.state)};
    // A combination that stood down while its press was on the way has still been taken from the
    // application. Among keys tapped while the server sends us all of them it is none of ours.
    const bool isFirst = pressed_.empty();
    const auto hotKey = std::ranges::find_if(hotKeys_, [&](const HotKey& candidate) {
        return candidate.grab == grab && (candidate.isGrabbed || isFirst);
    });
    if (hotKey == hotKeys_.end()) {
        handleModifierPress(event);
        return;
    }
    PressedKey pressed{hotKey->ref, hotKey->id, grab.keycode, grab.modifiers,
                       0,           false,      ++lastSerial_};
    if (const auto down = queryPressedKeys(connection_)) {
        keysDown_ = *down;
        pressed.heldModifiers = modifiersAmong(*down, grab.modifiers);
    }
    pressed_.push_back(pressed);
    startWatchingKeys();
    sendPressed(*hotKey);
}

void X11HotKeys::handleKeyRelease(const xcb_key_release_event_t& event) {
    const auto key = std::ranges::find(pressed_, event.detail, &PressedKey::keycode);
    if (key != pressed_.end()) {
        PressedKey released = *key;
        pressed_.erase(key);
        sendReleased(released);
        if (pressed_.empty()) {
            afterLastRelease();
        }
        return;
    }
    keysDown_.reset(event.detail);
    // The other Ctrl may still be down.
    const auto gone = static_cast<std::uint16_t>(modifierMap_.modifiersOfKey(event.detail)
                                                 & ~modifiersAmong(keysDown_, allModifiers));
    releaseThose([&](const PressedKey& pressed) { return (pressed.modifiers & gone) != 0; });
}

/// A modifier that goes down over a press was not needed for it, or it had been let go.
void X11HotKeys::handleModifierPress(const xcb_key_press_event_t& event) {
    keysDown_.set(event.detail);
    const auto wasUp =
        static_cast<std::uint16_t>(modifierMap_.modifiersOfKey(event.detail) & ~event.state);
    releaseThose([&](const PressedKey& pressed) { return (pressed.heldModifiers & wasUp) != 0; });
}

/// Those of the modifiers that a key in `down` acts as.
std::uint16_t X11HotKeys::modifiersAmong(const KeySet& down, std::uint16_t modifiers) const {
    std::uint16_t found = 0;
    for (std::size_t i = 0; i < 8; ++i) {
        const auto bit = static_cast<std::uint16_t>(1U << i);
        if ((modifiers & bit) != 0 && (modifierMap_.keysOf(i) & down).any()) {
            found |= bit;
        }
    }
    return found;
}

void X11HotKeys::sendPressed(const HotKey& hotKey) {
    send(kEventHotKeyPressed, hotKey.id);
}

void X11HotKeys::sendReleased(PressedKey& pressed) {
    if (!std::exchange(pressed.releaseSent, true)) {
        send(kEventHotKeyReleased, pressed.id);
    }
}

void X11HotKeys::send(std::uint32_t kind, EventHotKeyID id) {
    if (handler_) {
        const HotKeyEvent event{kind, id, noErr};
        handler_(&event);
    }
}

void X11HotKeys::startWatchingKeys() {
    if (!keyWatch_.isActive()) {
        keyWatch_ = runLoop_.repeat(keyWatchInterval, [this] { checkPressedKeys(); });
    }
}

void X11HotKeys::checkPressedKeys() {
    const auto serial = lastSerial_;
    const auto down = queryPressedKeys(connection_);
    connection_.drain(); // the events first: a release among them is the better witness
    if (!down) {
        return;
    }
    releaseThose([&](const PressedKey& pressed) {
        return pressed.serial <= serial && !isStillHeld(pressed, *down);
    });
    const bool hadKeys = !pressed_.empty();
    std::erase_if(pressed_, [&](const PressedKey& key) {
        return key.serial <= serial && !(*down)[key.keycode];
    });
    if (hadKeys && pressed_.empty()) {
        afterLastRelease();
    }
}

template <typename Condition>
void X11HotKeys::releaseThose(Condition condition) {
    // By index: a handler may change the list.
    for (std::size_t i = 0; i < pressed_.size(); ++i) { // NOLINT(modernize-loop-convert)
        if (condition(pressed_[i])) {
            sendReleased(pressed_[i]);
        }
    }
}

bool X11HotKeys::isStillHeld(const PressedKey& pressed, const KeySet& down) const {
    return down[pressed.keycode]
           && modifiersAmong(down, pressed.heldModifiers) == pressed.heldModifiers;
}

void X11HotKeys::afterLastRelease() {
    keyWatch_.cancel();
    if (std::exchange(remakeWhenReleased_, false)) {
        remakeGrabs();
    }
    applyStandDowns();
}

void X11HotKeys::applyStandDowns() {
    for (HotKey& hotKey : hotKeys_) {
        applyStandDown(hotKey);
    }
    connection_.flush();
}

void X11HotKeys::applyStandDown(HotKey& hotKey) {
    if (!hotKey.grab || hotKey.isGrabbed != standsDown(hotKey.id)) {
        return;
    }
    if (hotKey.isGrabbed) {
        giveBack(*hotKey.grab);
        hotKey.isGrabbed = false;
        return;
    }
    hotKey.isGrabbed = take(*hotKey.grab);
    if (!hotKey.isGrabbed && !std::exchange(hotKey.lossReported, true)) {
        errorLog_.error("A guarded shortcut could not be taken back; each change of the frontmost "
                        "application tries again.",
                        statusDescription(eventHotKeyExistsErr));
    } else if (hotKey.isGrabbed) {
        hotKey.lossReported = false;
    }
}

void X11HotKeys::handleMappingChange() {
    remakeTimer_ = runLoop_.repeat(remakeDelay, [this] {
        remakeTimer_.cancel();
        if (pressed_.empty()) {
            remakeGrabs();
        } else {
            remakeWhenReleased_ = true;
        }
    });
}

void X11HotKeys::remakeGrabs() {
    const auto map = X11ModifierMap::read(connection_);
    connection_.drainLater();
    if (map == modifierMap_) {
        return;
    }
    for (HotKey& hotKey : hotKeys_) {
        if (std::exchange(hotKey.isGrabbed, false)) {
            giveBack(*hotKey.grab); // with the lock modifiers that it was taken with
        }
    }
    modifierMap_ = map;
    for (HotKey& hotKey : hotKeys_) {
        hotKey.grab = grabFor(hotKey.keyCode, hotKey.mask);
    }
    applyStandDowns();
}

std::optional<X11HotKeys::Grab> X11HotKeys::grabFor(std::uint32_t keyCode,
                                                    std::uint32_t mask) const {
    const auto evdev = evdevKeyCode(keyCode);
    const auto modifiers = modifierMap_.realModifiers(mask);
    if (!evdev || !modifiers) {
        return std::nullopt;
    }
    const std::uint32_t keycode = *evdev + xkbKeycodeOffset;
    const auto* setup = xcb_get_setup(connection_.raw());
    if (keycode < setup->min_keycode || keycode > setup->max_keycode) {
        return std::nullopt;
    }
    return Grab{static_cast<xcb_keycode_t>(keycode), *modifiers};
}

/// All lock variants or none.
bool X11HotKeys::take(const Grab& grab) {
    std::vector<std::pair<std::uint16_t, xcb_void_cookie_t>> requests;
    for (const std::uint16_t locks : modifierMap_.lockCombinations()) {
        const auto modifiers = static_cast<std::uint16_t>(grab.modifiers | locks);
        requests.emplace_back(modifiers,
                              xcb_grab_key_checked(connection_.raw(), 0, connection_.root(),
                                                   modifiers, grab.keycode, XCB_GRAB_MODE_ASYNC,
                                                   XCB_GRAB_MODE_ASYNC));
    }
    connection_.drainLater();
    std::vector<std::uint16_t> taken;
    for (const auto& [modifiers, cookie] : requests) {
        const XcbPtr<xcb_generic_error_t> error(xcb_request_check(connection_.raw(), cookie));
        if (!error) {
            taken.push_back(modifiers);
        }
    }
    if (taken.size() == requests.size()) {
        return true;
    }
    for (const std::uint16_t modifiers : taken) {
        xcb_ungrab_key(connection_.raw(), grab.keycode, connection_.root(), modifiers);
    }
    connection_.flush();
    return false;
}

void X11HotKeys::giveBack(const Grab& grab) {
    for (const std::uint16_t locks : modifierMap_.lockCombinations()) {
        xcb_ungrab_key(connection_.raw(), grab.keycode, connection_.root(),
                       static_cast<std::uint16_t>(grab.modifiers | locks));
    }
}

bool X11HotKeys::standsDown(EventHotKeyID id) const {
    return standingDown_.contains({id.signature, id.id});
}

} // namespace dwellkey
