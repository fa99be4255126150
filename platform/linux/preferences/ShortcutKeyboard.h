#pragma once

#include <cstdint>

#include <QString>

#include "platform/Signal.h"
#include "platform/linux/keyboard/PrintedKeyboard.h"
#include "platform/linux/preferences/KeyNames.h"
#include "platform/linux/qt/WindowHost.h"
#include "settings/InputShortcut.h"
#include "shortcuts/RecorderBehaviour.h"

namespace quorvane {

/// The keyboard in the terms of shortcuts. Asks what it knows only when it is asked itself, and again after
/// the keyboard's map has changed.
class ShortcutKeyboard {
public:
    /// What is given must outlive this object.
    ShortcutKeyboard(PrintedKeyboard& keyboard, WindowHost& host);

    /// As the window host does.
    Subscription takeKeyboard(QWidget& widget) { return host_.takeKeyboard(widget); }

    /// The modifiers in the state of a key event, as `ModifierFlag`s; locks are none.
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

    PrintedKeyboard& keyboard_;
    WindowHost& host_;
    bool isKnown_ = false;
    ModifierBits bits_;
    KeyNames names_;
    Subscription changes_;
};

} // namespace quorvane
