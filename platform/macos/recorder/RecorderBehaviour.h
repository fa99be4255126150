#pragma once

#include <cstdint>
#include <functional>

#include "platform/PropertyList.h"
#include "platform/Subscription.h"
#include "shortcuts/ShortcutRecording.h"

namespace quorvane {

/// What a recorder of key combinations does with what its view hears. The view has the keyboard, also when
/// nothing is recorded.
class RecorderBehaviour {
public:
    struct View {
        std::function<bool()> takeKeyboard;       ///< Whether the view has it now.
        std::function<Subscription()> watch;      ///< All that has to be in place while it records.
        std::function<void()> changed;            ///< It has something else to show.
        std::function<void()> didEndRecording;    ///< There is another value.
        std::function<std::uint64_t()> heldFlags; ///< The modifiers that are held at this moment.
    };

    explicit RecorderBehaviour(View view) : view_(std::move(view)) {}

    const PropertyList& objectValue() const { return objectValue_; }
    void setObjectValue(PropertyList value);
    void setRules(std::uint64_t allowedModifierFlags, bool allowsEmptyModifierFlags);

    const ShortcutRecording& recording() const { return recording_; }
    bool isInUse() const { return recording_.state() != ShortcutRecording::State::idle; }
    bool canBeCleared() const { return !isInUse() && !objectValue_.isNothing(); }

    void press(); ///< A click, or what does the same.
    void clear();
    void end(); ///< Leaves everything as it is.

    // Whether the view has to do without it.
    bool keyDown(unsigned short keyCode, std::uint64_t flags, bool isRepeat);
    bool flagsChanged(std::uint64_t flags);
    void keyUp(unsigned short keyCode);

private:
    void begin();
    void record(unsigned short keyCode, std::uint64_t flags);
    void tell(const PropertyList& value);

    View view_;
    PropertyList objectValue_;
    std::uint64_t allowedModifierFlags_ = 0;
    ShortcutRecording recording_;
    Subscription watch_;
};

} // namespace quorvane
