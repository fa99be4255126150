#include "shortcuts/ShortcutRecording.h"

#include "settings/InputShortcut.h"

namespace quorvane {

void ShortcutRecording::begin(std::uint64_t heldFlags) {
    state_ = State::recording;
    holdModifiers(heldFlags);
}

void ShortcutRecording::holdModifiers(std::uint64_t heldFlags) {
    if (state_ != State::recording) return;
    heldFlags_ = heldFlags & allowedModifierFlags_;
    hasRefused_ = false;
}

std::optional<PropertyList> ShortcutRecording::press(const KeyPress& press) {
    if (state_ != State::recording) return std::nullopt;
    const auto flags = press.modifierFlags & allowedModifierFlags_;
    const auto meaning = flags ? Meaning::recorded : press.meaning;
    if (meaning == Meaning::recorded) {
        hasRefused_ = !press.keyCode || (!flags && !allowsEmptyModifierFlags_);
        if (hasRefused_) return std::nullopt;
    }
    state_ = State::releasing;
    lastKey_ = press.key;
    if (meaning == Meaning::leavesAsItWas) return std::nullopt;
    if (meaning == Meaning::clears) return PropertyList();
    return InputShortcut{*press.keyCode, static_cast<std::int64_t>(flags)}.record();
}

ShortcutRecording::Display ShortcutRecording::display() const {
    if (state_ != State::recording) return Display::objectValue;
    if (hasRefused_) return Display::refusal;
    return heldFlags_ ? Display::heldModifiers : Display::prompt;
}

} // namespace quorvane
