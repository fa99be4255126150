#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

class QDBusMessage;

namespace quorvane {

/// How Fcitx5 describes one of its input methods.
struct Fcitx5InputMethod {
    std::string name;
    std::string nativeName; ///< In its own language; may be empty.
    std::string icon;       ///< A path, or a name in the icon theme; may be empty.
    std::string label;      ///< A sign or a few letters; may be empty.
};

/// What the user has chosen to type with, in that order.
struct Fcitx5Group {
    struct Item {
        std::string inputMethod; ///< Fcitx5's own name of it.
        std::string layout;      ///< Under the input method: `ru-phonetic`; the group's when it is empty.
    };

    std::string layout;
    std::vector<Item> items;
};

// Both return none for an answer of another kind. Entries without a name and repetitions are left out.
std::optional<Fcitx5Group> fcitx5GroupIn(const QDBusMessage& answer);
std::optional<std::map<std::string, Fcitx5InputMethod>> fcitx5InputMethodsIn(const QDBusMessage& answer);

} // namespace quorvane
