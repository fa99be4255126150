#include "control/ShortcutText.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "platform/GlobalEventMonitor.h"

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

struct KeyName {
    std::string_view name;
    std::int64_t keyCode;
};

// clang-format off
constexpr KeyName keyNames[] = {
    {"A", 0x00}, {"B", 0x0b}, {"C", 0x08}, {"D", 0x02}, {"E", 0x0e}, {"F", 0x03}, {"G", 0x05}, {"H", 0x04},
    {"I", 0x22}, {"J", 0x26}, {"K", 0x28}, {"L", 0x25}, {"M", 0x2e}, {"N", 0x2d}, {"O", 0x1f}, {"P", 0x23},
    {"Q", 0x0c}, {"R", 0x0f}, {"S", 0x01}, {"T", 0x11}, {"U", 0x20}, {"V", 0x09}, {"W", 0x0d}, {"X", 0x07},
    {"Y", 0x10}, {"Z", 0x06},
    {"0", 0x1d}, {"1", 0x12}, {"2", 0x13}, {"3", 0x14}, {"4", 0x15}, {"5", 0x17}, {"6", 0x16}, {"7", 0x1a},
    {"8", 0x1c}, {"9", 0x19},
    {"`", 0x32}, {"-", 0x1b}, {"=", 0x18}, {"[", 0x21}, {"]", 0x1e}, {";", 0x29}, {"'", 0x27}, {"\\", 0x2a},
    {",", 0x2b}, {".", 0x2f}, {"/", 0x2c}, {"<", 0x0a},
    {"F1", 0x7a}, {"F2", 0x78}, {"F3", 0x63}, {"F4", 0x76}, {"F5", 0x60}, {"F6", 0x61}, {"F7", 0x62},
    {"F8", 0x64}, {"F9", 0x65}, {"F10", 0x6d}, {"F11", 0x67}, {"F12", 0x6f}, {"F13", 0x69}, {"F14", 0x6b},
    {"F15", 0x71}, {"F16", 0x6a}, {"F17", 0x40}, {"F18", 0x4f}, {"F19", 0x50}, {"F20", 0x5a},
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
    if (const auto* key = named(keyNames, text)) return key->keyCode;
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
    const auto* const key = std::ranges::find(keyNames, shortcut.keyCode, &KeyName::keyCode);
    if (key == std::end(keyNames)) return text.append("#").append(std::to_string(shortcut.keyCode));
    return text.append(key->name);
}

} // namespace quorvane
