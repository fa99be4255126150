#include "platform/macos/recorder/RecorderBehaviour.h"

#include <utility>

namespace quorvane {
namespace {

// Positions on the keyboard.
constexpr unsigned short returnKey = 0x24;
constexpr unsigned short spaceKey = 0x31;
constexpr unsigned short deleteKey = 0x33;
constexpr unsigned short escapeKey = 0x35;
constexpr unsigned short enterKey = 0x4c;
constexpr unsigned short forwardDeleteKey = 0x75;

ShortcutRecording::Meaning meaningOf(unsigned short keyCode) {
    if (keyCode == escapeKey) return ShortcutRecording::Meaning::leavesAsItWas;
    if (keyCode == deleteKey) return ShortcutRecording::Meaning::clears;
    return ShortcutRecording::Meaning::recorded;
}

} // namespace

void RecorderBehaviour::setObjectValue(PropertyList value) {
    objectValue_ = std::move(value);
    view_.changed();
}

void RecorderBehaviour::setRules(std::uint64_t allowedModifierFlags, bool allowsEmptyModifierFlags) {
    allowedModifierFlags_ = allowedModifierFlags;
    recording_.setRules(allowedModifierFlags, allowsEmptyModifierFlags);
}

void RecorderBehaviour::press() {
    if (recording_.state() == ShortcutRecording::State::recording)
        end();
    else
        begin();
}

void RecorderBehaviour::begin() {
    // A name that is being edited may keep the keyboard.
    if (!view_.takeKeyboard()) return;
    end();
    recording_.begin(view_.heldFlags());
    watch_ = view_.watch();
    view_.changed();
}

void RecorderBehaviour::end() {
    if (!isInUse()) return;
    recording_.end();
    view_.changed();
    watch_.end();
}

void RecorderBehaviour::clear() {
    if (canBeCleared()) tell({});
}

bool RecorderBehaviour::keyDown(unsigned short keyCode, std::uint64_t flags, bool isRepeat) {
    if (!isRepeat && recording_.state() == ShortcutRecording::State::releasing)
        end(); // The release of the last key went elsewhere.
    if (isInUse()) {
        if (!isRepeat) record(keyCode, flags);
        return true;
    }
    if (flags & allowedModifierFlags_) return false;
    switch (keyCode) {
    case spaceKey:
    case returnKey:
    case enterKey:
        if (!isRepeat) begin();
        return true;
    case deleteKey:
    case forwardDeleteKey:
        if (!isRepeat) clear();
        return true;
    default:
        return false;
    }
}

void RecorderBehaviour::record(unsigned short keyCode, std::uint64_t flags) {
    const auto recorded = recording_.press(
        {.key = keyCode, .keyCode = keyCode, .modifierFlags = flags, .meaning = meaningOf(keyCode)});
    view_.changed();
    if (recorded) tell(*recorded);
}

bool RecorderBehaviour::flagsChanged(std::uint64_t flags) {
    if (!isInUse()) return false;
    if (recording_.state() == ShortcutRecording::State::recording) {
        recording_.holdModifiers(flags);
        view_.changed();
    } else if (!(flags & allowedModifierFlags_)) {
        end(); // What is held still is no combination any more.
    }
    return true;
}

void RecorderBehaviour::keyUp(unsigned short keyCode) {
    if (recording_.isOverWithRelease(keyCode)) end();
}

void RecorderBehaviour::tell(const PropertyList& value) {
    setObjectValue(value);
    view_.didEndRecording();
}

} // namespace quorvane
