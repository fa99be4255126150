#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

#include "platform/PropertyList.h"
#include "platform/Subscription.h"

namespace quorvane {

/// What keys and clicks do to a control that records key combinations, whichever desktop it is on. The
/// control has the keyboard, also when nothing is recorded.
class RecorderBehaviour {
public:
    enum class State {
        atRest,
        recording,
        refused,   ///< It still records; the last key was none that can be.
        releasing, ///< It is over, but its last key is still held and would go on as a hot key.
    };

    /// What a key is to the control itself while nothing is held with it.
    enum class Role {
        none,    ///< It can be recorded.
        leaves,  ///< Escape: ends a recording.
        begins,  ///< Return, Enter, Space: begins a recording, and ends it.
        clears,  ///< Backspace, Delete.
        movesOn, ///< Tab: ends a recording, and goes to the next control.
    };

    /// By the program's key code.
    static Role roleOf(std::int64_t keyCode);

    struct Key {
        std::uint32_t number = 0;            ///< The desktop's own: it comes again with the release.
        std::optional<std::int64_t> keyCode; ///< None for a key that no hot key can have.
        Role role = Role::none;
    };

    struct Modifiers {
        std::uint64_t flags = 0;
        bool haveOthers = false; ///< One is held that no hot key can have.
    };

    struct View {
        std::function<bool()> takeKeyboard;       ///< Whether the view has it now.
        std::function<Subscription()> watch;      ///< All that has to be in place while it records.
        std::function<void()> changed;            ///< It has something else to show.
        std::function<void()> didEndRecording;    ///< There is another value.
        std::function<Modifiers()> heldModifiers; ///< At this moment.
    };

    enum class Display { objectValue, prompt, heldModifiers, refusal };

    explicit RecorderBehaviour(View view) : view_(std::move(view)) {}

    /// What it shows; nothing for no combination.
    const PropertyList& objectValue() const { return objectValue_; }

    /// `hasEntry`: there is something to clear, whatever is shown. A recording goes on.
    void setObjectValue(PropertyList value, bool hasEntry);

    /// Which combinations can be recorded.
    void setRules(std::uint64_t allowedModifierFlags, bool allowsEmptyModifierFlags);

    State state() const { return state_; }
    bool isInUse() const { return state_ != State::atRest; }
    bool isRecording() const { return state_ == State::recording || state_ == State::refused; }
    bool canBeCleared() const { return !isInUse() && hasEntry_; }
    Display display() const;
    std::uint64_t heldFlags() const { return heldFlags_; } ///< Those of them that count.

    void press(); ///< A click, or what does the same.
    void clear();
    void end(); ///< Leaves everything as it is.

    /// A key that is no modifier goes down. Whether the view has to do without it.
    bool keyDown(const Key& key, const Modifiers& modifiers, bool isRepeat);

    /// Modifiers were pressed or released. Whether the view has to do without them.
    bool modifiersChanged(const Modifiers& held);

    void keyUp(std::uint32_t number);

private:
    void begin();
    bool keyDownAtRest(Role role, bool isRepeat);
    bool keyDownWhileRecording(const Key& key, Role role, const Modifiers& modifiers);
    void enter(State state);
    void tell(const PropertyList& value);

    View view_;
    PropertyList objectValue_;
    bool hasEntry_ = false;
    std::uint64_t allowedModifierFlags_ = 0;
    bool allowsEmptyModifierFlags_ = false;
    State state_ = State::atRest;
    std::uint64_t heldFlags_ = 0;
    std::uint32_t lastKey_ = 0;
    Subscription watch_;
};

} // namespace quorvane
