#pragma once

#include <cstdint>
#include <optional>

#include "platform/PropertyList.h"

namespace quorvane {

/// What the keys do to a control that records key combinations, from its click on.
class ShortcutRecording {
public:
    enum class State {
        idle,
        recording,
        releasing, ///< It is over, but its last key is still held and would go on as a hot key.
    };

    /// What a key does that is pressed without modifiers.
    enum class Meaning { recorded, leavesAsItWas, clears };

    struct KeyPress {
        std::uint32_t key = 0;               ///< The desktop's own number: it comes again with the release.
        std::optional<std::int64_t> keyCode; ///< None for a key that no hot key can have.
        std::uint64_t modifierFlags = 0;
        Meaning meaning = Meaning::recorded;
    };

    enum class Display {
        objectValue, ///< It is not recording.
        prompt,
        heldModifiers,
        refusal, ///< The last key was none that can be recorded.
    };

    /// Which combinations can be recorded. May change while it records.
    void setRules(std::uint64_t allowedModifierFlags, bool allowsEmptyModifierFlags) {
        allowedModifierFlags_ = allowedModifierFlags;
        allowsEmptyModifierFlags_ = allowsEmptyModifierFlags;
    }

    void begin(std::uint64_t heldFlags);
    void end() { state_ = State::idle; }

    /// Modifiers were pressed or released; these are held now.
    void holdModifiers(std::uint64_t heldFlags);

    /// A key that is no modifier, when it goes down. What was recorded, if it was something: nothing in it
    /// when the combination was cleared.
    std::optional<PropertyList> press(const KeyPress& press);

    /// Whether it is over now that this key goes up.
    bool isOverWithRelease(std::uint32_t key) const { return state_ == State::releasing && key == lastKey_; }

    State state() const { return state_; }
    Display display() const;
    std::uint64_t heldFlags() const { return heldFlags_; } ///< Those of them that count.

private:
    std::uint64_t allowedModifierFlags_ = 0;
    bool allowsEmptyModifierFlags_ = false;
    State state_ = State::idle;
    bool hasRefused_ = false;
    std::uint64_t heldFlags_ = 0;
    std::uint32_t lastKey_ = 0;
};

} // namespace quorvane
