#include "platform/linux/x11/keyboard/X11HotKeys.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/GlobalEventMonitor.h"
#include "platform/linux/keyboard/KeyCodes.h"
#include "platform/linux/x11/XcbReply.h"
#include "platform/linux/x11/keyboard/XcbXkb.h"

namespace quorvane {

namespace {

constexpr std::uint64_t flagsThatCount =
    ModifierFlag::command | ModifierFlag::control | ModifierFlag::option | ModifierFlag::shift;

} // namespace

X11HotKeys::X11HotKeys(XConnection& x)
    : x_(x)
    , events_(x.onEvent([this](const auto& event) { handle(event); })) {}

X11HotKeys::~X11HotKeys() {
    for (const auto& key : keys_)
        ungrab(key);
}

std::optional<Subscription> X11HotKeys::registerHotKey(const KeyCombination& combination,
                                                       std::function<void()> pressed) {
    const auto keycode = xKeycodeOf(combination.keyCode);
    if (!keycode) return std::nullopt;
    const auto flags = combination.modifierFlags & flagsThatCount;
    const bool isOurs = std::ranges::any_of(
        keys_, [&](const HotKey& each) { return each.keycode == *keycode && each.modifierFlags == flags; });
    if (isOurs) return std::nullopt;
    if (!isStarted_) start();
    HotKey key{*keycode, flags, std::move(pressed)};
    if (!grab(key)) return std::nullopt;
    keys_.push_back(std::move(key));
    return Subscription([this, alive = std::weak_ptr(alive_), place = std::prev(keys_.end())] {
        if (alive.expired()) return;
        ungrab(*place);
        keys_.erase(place);
    });
}

void X11HotKeys::start() {
    isStarted_ = true;
    if (selectKeyboardMapEvents(x_)) {
        // Otherwise the server would tell of a release, too, whenever a held key repeats.
        constexpr std::uint32_t flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
        const auto cookie = xcb_xkb_per_client_flags(x_.xcb(), XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0);
        xcb_discard_reply(x_.xcb(), cookie.sequence);
    }
    bits_ = readModifierBits(x_).value_or(ModifierBits{});
}

/// The modifier states in which the key is the hot key: with and without each lock. None when the keyboard
/// lacks a modifier.
std::vector<std::uint16_t> X11HotKeys::statesOf(const HotKey& key) const {
    const auto state = bits_.stateOf(key.modifierFlags);
    if (!state) return {};
    std::vector<std::uint16_t> states;
    for (const unsigned capsLock : {0U, unsigned{XCB_MOD_MASK_LOCK}}) {
        for (const unsigned numLock : {0U, unsigned{bits_.numLock}})
            states.push_back(static_cast<std::uint16_t>(*state | capsLock | numLock));
    }
    return states;
}

/// All of its states or, when another program has one of them, none.
bool X11HotKeys::grab(const HotKey& key) {
    std::vector<xcb_void_cookie_t> requests;
    for (const auto state : statesOf(key))
        requests.push_back(xcb_grab_key_checked(x_.xcb(), 0, x_.root(), state, key.keycode,
                                                XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    bool isGrabbed = !requests.empty();
    for (const auto& request : requests) {
        const XcbReply<xcb_generic_error_t> error(xcb_request_check(x_.xcb(), request));
        if (error) isGrabbed = false;
    }
    if (!isGrabbed) ungrab(key);
    return isGrabbed;
}

void X11HotKeys::ungrab(const HotKey& key) {
    for (const auto state : statesOf(key))
        xcb_ungrab_key(x_.xcb(), key.keycode, x_.root(), state);
}

void X11HotKeys::handle(const xcb_generic_event_t& event) {
    const auto type = event.response_type & 0x7f;
    // Presses and releases have one layout.
    const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(event);
    if (type == XCB_KEY_PRESS)
        handlePress(key.detail, key.state);
    else if (type == XCB_KEY_RELEASE)
        handleRelease(key.detail);
    else if (isStarted_ && isKeyboardMapEvent(x_, event))
        followModifiers();
}

void X11HotKeys::handlePress(std::uint8_t keycode, std::uint16_t state) {
    if (std::ranges::count(held_, keycode)) return; // It repeats.
    held_.push_back(keycode);
    constexpr unsigned modifiers = 0xff; // The others are the mouse's buttons and the group.
    const auto key = std::ranges::find_if(keys_, [&](const HotKey& each) {
        return each.keycode == keycode && std::ranges::count(statesOf(each), state & modifiers);
    });
    if (key == keys_.end()) return;
    const auto pressed = key->pressed; // It may end its own registration.
    pressed();
}

void X11HotKeys::handleRelease(std::uint8_t keycode) {
    // The first key's release ends the grab, and what becomes of the others then goes unseen.
    if (!held_.empty() && held_.front() == keycode)
        held_.clear();
    else
        std::erase(held_, keycode);
}

void X11HotKeys::followModifiers() {
    const auto bits = readModifierBits(x_);
    if (!bits || *bits == bits_) return;
    for (const auto& key : keys_)
        ungrab(key);
    bits_ = *bits;
    // One that is taken, or lacks its modifier, rests until the modifiers move again.
    for (const auto& key : keys_)
        grab(key);
    changed.emit();
}

} // namespace quorvane
