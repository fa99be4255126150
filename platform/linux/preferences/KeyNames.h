#pragma once

#include <cstdint>
#include <map>

#include <QFontMetrics>
#include <QString>

#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// What is printed on the keys of a keyboard: what they type, without modifiers, in its first Latin layout.
class KeyNames {
public:
    KeyNames() = default;

    /// Asks the server, one round trip. Without its answer only keys that type nothing have names.
    static KeyNames read(XConnection& x);

    /// The longest of the names that keys have without a keyboard.
    static int widestName(const QFontMetrics& font);

    /// The key's name as menus write it: "K", "F5", "Page Up". `keyCode` is one of the program's.
    QString nameOf(std::int64_t keyCode) const;

private:
    std::map<std::uint8_t, std::uint32_t> keysyms_; ///< By X keycode.
};

} // namespace quorvane
