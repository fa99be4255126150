#pragma once

#include <cstdint>

#include <QString>

#include "platform/Signal.h"
#include "platform/linux/keyboard/ModifierBits.h"
#include "platform/linux/preferences/KeyNames.h"
#include "settings/InputShortcut.h"
#include "shortcuts/RecorderBehaviour.h"

namespace quorvane {

/// The keyboard as whoever records shortcuts sees it. Asks the server only when it is asked itself, and again
/// after the keyboard's map has changed.
class ShortcutKeyboard {
public:
    /// The connection must outlive this object.
    explicit ShortcutKeyboard(XConnection& x);

    /// The modifiers in the state of an X event, as `ModifierFlag`s; locks are none.
    RecorderBehaviour::Modifiers modifiersOfState(std::uint32_t state);

    /// The modifiers that are held at this moment.
    RecorderBehaviour::Modifiers heldModifiers();

    /// "Ctrl+Alt+", in the order in which desktops write them.
    static QString textOfModifiers(std::uint64_t flags);

    /// "Ctrl+Alt+K".
    QString textOf(const InputShortcut& shortcut);

    Signal<> changed; ///< Keys may have other names now.

private:
    void read();

    XConnection& x_;
    bool isKnown_ = false;
    ModifierBits bits_;
    KeyNames names_;
    Subscription events_;
};

} // namespace quorvane
