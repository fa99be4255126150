#include "control/ShortcutText.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "platform/GlobalEventMonitor.h"
#include "settings/KeyNames.h"

namespace quorvane {
namespace {

struct ModifierName {
    std::string_view name;
    std::uint64_t flag;
};

/// The first name of each is the one it is called by.
constexpr ModifierName modifierNames[] = {
    {"Ctrl", ModifierFlag::control},  {"Alt", ModifierFlag::option},      {"Shift", ModifierFlag::shift},
    {"Super", ModifierFlag::command}, {"Control", ModifierFlag::control}, {"Option", ModifierFlag::option},
    {"Meta", ModifierFlag::command},  {"Command", ModifierFlag::command}, {"Cmd", ModifierFlag::command},
    {"Win", ModifierFlag::command}};

// clang-format off
/// The first name of each is the one it is called by.
constexpr KeyName otherKeys[] = {
    {"Space", 0x31}, {"Return", 0x24}, {"Enter", 0x24}, {"Tab", 0x30}, {"Escape", 0x35}, {"Esc", 0x35},
    {"Backspace", 0x33}, {"Delete", 0x75}, {"Del", 0x75}, {"Insert", 0x72}, {"Home", 0x73}, {"End", 0x77},
    {"PageUp", 0x74}, {"PageDown", 0x79}, {"Left", 0x7b}, {"Right", 0x7c}, {"Down", 0x7d}, {"Up", 0x7e},
    {"Menu", 0x6e},
};
// clang-format on

char upper(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

template <class Table>
auto named(const Table& table, std::string_view name) {
    const auto* const found = std::ranges::find_if(
        table, [&](const auto& each) { return std::ranges::equal(each.name, name, {}, upper, upper); });
    return found == std::end(table) ? nullptr : found;
}

std::optional<std::int64_t> keyCodeOfText(std::string_view text) {
    if (const auto* key = named(printedKeys, text)) return key->keyCode;
    if (const auto* key = named(functionKeys, text)) return key->keyCode;
    if (const auto* key = named(otherKeys, text)) return key->keyCode;
    if (!text.starts_with('#')) return std::nullopt;
    std::int64_t keyCode = 0;
    const auto* end = text.data() + text.size();
    const auto read = std::from_chars(text.data() + 1, end, keyCode);
    const bool isNumber = read.ec == std::errc() && read.ptr == end && keyCode >= 0;
    return isNumber ? std::optional(keyCode) : std::nullopt;
}

} // namespace

std::optional<InputShortcut> shortcutOfText(std::string_view text) {
    std::uint64_t flags = 0;
    for (auto plus = text.find('+'); plus != std::string_view::npos; plus = text.find('+')) {
        const auto* modifier = named(modifierNames, text.substr(0, plus));
        if (!modifier) return std::nullopt;
        flags |= modifier->flag;
        text.remove_prefix(plus + 1);
    }
    const auto keyCode = keyCodeOfText(text);
    if (!keyCode || (flags == 0 && !InputShortcut::isFunctionKey(*keyCode))) return std::nullopt;
    return InputShortcut{*keyCode, static_cast<std::int64_t>(flags)};
}

std::string textOfShortcut(const InputShortcut& shortcut) {
    auto left = static_cast<std::uint64_t>(shortcut.modifierFlags);
    std::string text;
    for (const auto& [name, flag] : modifierNames) {
        if (left & flag) text.append(name).append("+");
        left &= ~flag;
    }
    for (const auto name : {nameIn(printedKeys, shortcut.keyCode), nameIn(functionKeys, shortcut.keyCode),
                            nameIn(otherKeys, shortcut.keyCode)})
        if (!name.empty()) return text.append(name);
    return text.append("#").append(std::to_string(shortcut.keyCode));
}

} // namespace quorvane
