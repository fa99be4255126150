#pragma once

#include <optional>
#include <vector>

#include "platform/linux/keyboard/PrintedKeyboard.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

// What the server tells about the keyboard's map: one round trip each.

/// None when it does not answer.
std::optional<ModifierBits> readModifierBits(XConnection& x);

/// Empty when it has no XKB.
std::vector<TypedKeysyms> readTypedKeysyms(XConnection& x);

/// Has the server tell of every change of the keyboard's map, by events that `isKeyboardMapEvent` knows.
/// False when there is no XKB, without which it tells all the same.
bool selectKeyboardMapEvents(XConnection& x);
bool isKeyboardMapEvent(XConnection& x, const xcb_generic_event_t& event);

} // namespace quorvane
