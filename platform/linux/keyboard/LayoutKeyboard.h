#pragma once

#include <string>
#include <vector>

#include "platform/Signal.h"
#include "platform/linux/keyboard/XkbLayout.h"

namespace quorvane {

struct KeyboardLayouts {
    std::vector<XkbLayout> ofGroups;

    /// What the keyboard calls them, for those that the database of layouts does not know: `Russian
    /// (phonetic)`. May have fewer entries, and empty ones.
    std::vector<std::string> names;

    bool operator==(const KeyboardLayouts&) const = default;
};

/// The keyboard of a session: its layouts, called groups by XKB, and which of them typing uses.
class LayoutKeyboard {
public:
    virtual ~LayoutKeyboard() = default;

    /// The user's layouts, as of now. May be empty, while nobody tells.
    virtual KeyboardLayouts layouts() const = 0;

    /// The group that typing uses, as of the last event and the last lock. It can lie beyond the last one
    /// for a while, when the list has become shorter.
    virtual unsigned effectiveGroup() const = 0;

    /// Has the answer above include what changes of the list have done to the group, where nobody tells of
    /// it.
    virtual void readGroup() = 0;

    /// Makes a group the one that typing uses.
    virtual void lockGroup(unsigned group) = 0;

    Signal<unsigned> groupChanged; ///< The effective group, whoever changed it, this program included.
    Signal<> mapChanged;           ///< There are other layouts. May come several times for one change.
};

} // namespace quorvane
