#include "settings/InputShortcut.h"

#include "settings/KeyNames.h"
#include "settings/Keys.h"
#include "settings/ReadCopyChangeWrite.h"

namespace quorvane {
namespace {

constexpr std::string_view keyCodeKey = "keyCode";
constexpr std::string_view modifierFlagsKey = "modifierFlags";

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
    return !nameIn(functionKeys, keyCode).empty();
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
