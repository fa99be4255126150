#include "shortcuts/RecorderBehaviour.h"

#include <utility>

#include "settings/InputShortcut.h"

namespace quorvane {

RecorderBehaviour::Role RecorderBehaviour::roleOf(std::int64_t keyCode) {
    switch (keyCode) {
    case 0x35: // Escape
        return Role::leaves;
    case 0x24: // Return
    case 0x31: // Space
    case 0x4c: // Enter
        return Role::begins;
    case 0x33: // Backspace
    case 0x75: // Delete
        return Role::clears;
    case 0x30: // Tab
        return Role::movesOn;
    default:
        return Role::none;
    }
}

void RecorderBehaviour::setObjectValue(PropertyList value, bool hasEntry) {
    objectValue_ = std::move(value);
    hasEntry_ = hasEntry;
    view_.changed();
}

void RecorderBehaviour::setRules(std::uint64_t allowedModifierFlags, bool allowsEmptyModifierFlags) {
    allowedModifierFlags_ = allowedModifierFlags;
    allowsEmptyModifierFlags_ = allowsEmptyModifierFlags;
}

RecorderBehaviour::Display RecorderBehaviour::display() const {
    if (!isRecording()) return Display::objectValue;
    if (state_ == State::refused) return Display::refusal;
    return heldFlags_ ? Display::heldModifiers : Display::prompt;
}

void RecorderBehaviour::press() {
    if (isRecording())
        end();
    else
        begin();
}

void RecorderBehaviour::begin() {
    // A name that is being edited may keep the keyboard.
    if (!view_.takeKeyboard()) return;
    end();
    heldFlags_ = view_.heldModifiers().flags & allowedModifierFlags_;
    watch_ = view_.watch();
    enter(State::recording);
}

void RecorderBehaviour::end() {
    if (!isInUse()) return;
    enter(State::atRest);
    watch_.end();
}

void RecorderBehaviour::clear() {
    if (canBeCleared()) tell({});
}

bool RecorderBehaviour::keyDown(const Key& key, const Modifiers& modifiers, bool isRepeat) {
    // A new key: the release of the last one went elsewhere.
    if (!isRepeat && state_ == State::releasing) end();
    const bool isBare = !(modifiers.flags & allowedModifierFlags_) && !modifiers.haveOthers;
    const auto role = isBare ? key.role : Role::none;
    if (!isInUse()) return keyDownAtRest(role, isRepeat);
    return isRepeat || keyDownWhileRecording(key, role, modifiers);
}

bool RecorderBehaviour::keyDownAtRest(Role role, bool isRepeat) {
    if (role != Role::begins && role != Role::clears) return false;
    if (isRepeat) return true;
    if (role == Role::begins)
        begin();
    else
        clear();
    return true;
}

bool RecorderBehaviour::keyDownWhileRecording(const Key& key, Role role, const Modifiers& modifiers) {
    lastKey_ = key.number;
    const auto flags = modifiers.flags & allowedModifierFlags_;
    switch (role) {
    case Role::movesOn:
        end();
        return false;
    case Role::leaves:
    case Role::begins:
        enter(State::releasing);
        return true;
    case Role::clears:
        enter(State::releasing);
        if (hasEntry_) tell({});
        return true;
    case Role::none:
        break;
    }
    const bool isAllowed = key.keyCode && !modifiers.haveOthers && (flags || allowsEmptyModifierFlags_);
    enter(isAllowed ? State::releasing : State::refused);
    if (isAllowed) tell(InputShortcut{*key.keyCode, static_cast<std::int64_t>(flags)}.record());
    return true;
}

bool RecorderBehaviour::modifiersChanged(const Modifiers& held) {
    if (!isInUse()) return false;
    heldFlags_ = held.flags & allowedModifierFlags_;
    if (isRecording())
        enter(heldFlags_ ? State::recording : state_); // A refusal can be read after all keys have gone up.
    else if (!heldFlags_)
        end(); // What is held still is no combination any more.
    return true;
}

void RecorderBehaviour::keyUp(std::uint32_t number) {
    if (state_ == State::releasing && number == lastKey_) end();
}

void RecorderBehaviour::enter(State state) {
    state_ = state;
    view_.changed();
}

void RecorderBehaviour::tell(const PropertyList& value) {
    setObjectValue(value, !value.isNothing());
    view_.didEndRecording();
}

} // namespace quorvane
