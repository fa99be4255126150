#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include <QFontMetrics>
#include <QString>

#include "platform/linux/keyboard/PrintedKeyboard.h"

namespace quorvane {

/// What is printed on the keys of a keyboard: what they type, without modifiers, in its first Latin layout.
class KeyNames {
public:
    KeyNames() = default;

    /// Without layouts only keys that type nothing have names.
    explicit KeyNames(std::vector<TypedKeysyms> layouts);

    /// The longest of the names that keys have without a keyboard.
    static int widestName(const QFontMetrics& font);

    /// The program's code of the key that Qt calls so; none for keys that type something, but for Space.
    static std::optional<std::int64_t> keyCodeOf(int key);

    /// The key's name as menus write it: "K", "F5", "Page Up". `keyCode` is one of the program's.
    QString nameOf(std::int64_t keyCode) const;

private:
    TypedKeysyms keysyms_; ///< By X keycode.
};

} // namespace quorvane
