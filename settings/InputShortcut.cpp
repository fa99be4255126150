#include "settings/InputShortcut.h"

#include <algorithm>
#include <array>

#include "settings/Keys.h"
#include "settings/ReadCopyChangeWrite.h"

namespace quorvane {
namespace {

constexpr std::string_view keyCodeKey = "keyCode";
constexpr std::string_view modifierFlagsKey = "modifierFlags";

/// F1 to F20, in this order.
constexpr std::array<std::int64_t, 20> functionKeyCodes = {122, 120, 99,  118, 96,  97,  98, 100, 101, 109,
                                                           103, 111, 105, 107, 113, 106, 64, 79,  80,  90};

} // namespace

std::optional<InputShortcut> InputShortcut::ofRecord(const PropertyList& record) {
    const InputShortcut shortcut{record[keyCodeKey].integerValue(), record[modifierFlagsKey].integerValue()};
    // 0 is the key A, which nobody could type any more.
    const bool tellsOfNone = record[keyCodeKey].isNothing() && shortcut.modifierFlags <= 0;
    return tellsOfNone ? std::nullopt : std::optional(shortcut);
}

PropertyList InputShortcut::record() const {
    return PropertyList::Dictionary{{std::string(keyCodeKey), keyCode},
                                    {std::string(modifierFlagsKey), modifierFlags}};
}

bool InputShortcut::isFunctionKey(std::int64_t keyCode) {
    return std::ranges::find(functionKeyCodes, keyCode) != functionKeyCodes.end();
}

void setShortcut(UserDefaults& standard, std::string_view inputSourceID, const PropertyList& record) {
    changeDictionary(standard, key::shortcutOfInput, [&](PropertyList::Dictionary& shortcuts) {
        shortcuts.insert_or_assign(std::string(inputSourceID), record);
    });
}

void removeShortcut(UserDefaults& standard, std::string_view inputSourceID) {
    changeDictionary(standard, key::shortcutOfInput, [&](PropertyList::Dictionary& shortcuts) {
        shortcuts.erase(std::string(inputSourceID));
    });
}

} // namespace quorvane
