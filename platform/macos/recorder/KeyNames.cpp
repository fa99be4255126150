#include "platform/macos/recorder/KeyNames.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "platform/GlobalEventMonitor.h"
#include "platform/macos/CFRef.h"
#include "platform/macos/CFValues.h"
#include "platform/macos/MainThread.h"

namespace quorvane {
namespace {

struct NamedKey {
    std::int64_t keyCode;
    std::string_view name;
};

constexpr std::int64_t spaceBar = 0x31;
constexpr std::int64_t lastKeyCode = 0x7f;

// clang-format off
constexpr NamedKey signs[] = {
    {0x24, "↩"}, {0x30, "⇥"}, {0x33, "⌫"}, {0x35, "⎋"}, {0x47, "⌧"}, {0x4c, "⌤"}, {0x73, "↖"},
    {0x74, "⇞"}, {0x75, "⌦"}, {0x77, "↘"}, {0x79, "⇟"}, {0x7b, "←"}, {0x7c, "→"}, {0x7d, "↓"}, {0x7e, "↑"},
    {0x7a, "F1"}, {0x78, "F2"}, {0x63, "F3"}, {0x76, "F4"}, {0x60, "F5"}, {0x61, "F6"}, {0x62, "F7"},
    {0x64, "F8"}, {0x65, "F9"}, {0x6d, "F10"}, {0x67, "F11"}, {0x6f, "F12"}, {0x69, "F13"}, {0x6b, "F14"},
    {0x71, "F15"}, {0x6a, "F16"}, {0x40, "F17"}, {0x4f, "F18"}, {0x50, "F19"}, {0x5a, "F20"},
};

/// An ANSI keyboard's, and a keypad's.
constexpr NamedKey printed[] = {
    {0x00, "A"}, {0x01, "S"}, {0x02, "D"}, {0x03, "F"}, {0x04, "H"}, {0x05, "G"}, {0x06, "Z"}, {0x07, "X"},
    {0x08, "C"}, {0x09, "V"}, {0x0b, "B"}, {0x0c, "Q"}, {0x0d, "W"}, {0x0e, "E"}, {0x0f, "R"}, {0x10, "Y"},
    {0x11, "T"}, {0x12, "1"}, {0x13, "2"}, {0x14, "3"}, {0x15, "4"}, {0x16, "6"}, {0x17, "5"}, {0x18, "="},
    {0x19, "9"}, {0x1a, "7"}, {0x1b, "-"}, {0x1c, "8"}, {0x1d, "0"}, {0x1e, "]"}, {0x1f, "O"}, {0x20, "U"},
    {0x21, "["}, {0x22, "I"}, {0x23, "P"}, {0x25, "L"}, {0x26, "J"}, {0x27, "'"}, {0x28, "K"}, {0x29, ";"},
    {0x2a, "\\"}, {0x2b, ","}, {0x2c, "/"}, {0x2d, "N"}, {0x2e, "M"}, {0x2f, "."}, {0x32, "`"}, {0x0a, "§"},
    {0x41, "."}, {0x43, "*"}, {0x45, "+"}, {0x4b, "/"}, {0x4e, "-"}, {0x51, "="}, {0x52, "0"}, {0x53, "1"},
    {0x54, "2"}, {0x55, "3"}, {0x56, "4"}, {0x57, "5"}, {0x58, "6"}, {0x59, "7"}, {0x5b, "8"}, {0x5c, "9"},
};
// clang-format on

template <std::size_t count>
std::string_view nameIn(const NamedKey (&names)[count], std::int64_t keyCode) {
    const auto* const found = std::ranges::find(names, keyCode, &NamedKey::keyCode);
    return found == std::end(names) ? std::string_view() : found->name;
}

/// Capitals, except where a letter has none of its own.
std::string capitals(const UniChar* characters, UniCharCount count) {
    const auto letters = CFRef<CFStringRef>::adopt(
        CFStringCreateWithCharacters(kCFAllocatorDefault, characters, static_cast<CFIndex>(count)));
    if (!letters) return {};
    const auto upper =
        CFRef<CFMutableStringRef>::adopt(CFStringCreateMutableCopy(kCFAllocatorDefault, 0, letters.get()));
    if (upper) CFStringUppercase(upper.get(), nullptr);
    const bool isOneForOne = upper && CFStringGetLength(upper.get()) == CFStringGetLength(letters.get());
    return stringOf(isOneForOne ? upper.get() : letters.get()).value_or("");
}

bool isPrintable(UniChar character) {
    const bool isControl = character <= 0x20 || (character >= 0x7f && character <= 0xa0);
    return !isControl && (character < 0xe000 || character > 0xf8ff); // nor of private use
}

/// Empty when the layout does not say, or the key types nothing that can be seen.
std::string typedBy(std::int64_t keyCode) {
    requireMainThread();
    const auto source =
        CFRef<TISInputSourceRef>::adopt(TISCopyCurrentASCIICapableKeyboardLayoutInputSource());
    const auto* data =
        source ? typed<CFDataRef>(TISGetInputSourceProperty(source.get(), kTISPropertyUnicodeKeyLayoutData),
                                  CFDataGetTypeID())
               : nullptr;
    const auto* bytes = data && CFDataGetLength(data) > 0 ? CFDataGetBytePtr(data) : nullptr;
    if (!bytes) return {};
    constexpr UInt32 noModifiers = 0;
    UInt32 deadKeys = 0;
    std::array<UniChar, 4> characters{};
    UniCharCount count = 0;
    const auto status =
        UCKeyTranslate(reinterpret_cast<const UCKeyboardLayout*>(bytes), static_cast<UInt16>(keyCode),
                       kUCKeyActionDisplay, noModifiers, LMGetKbdType(), kUCKeyTranslateNoDeadKeysMask,
                       &deadKeys, characters.size(), &count, characters.data());
    if (status != noErr || count == 0 || count > characters.size() || !isPrintable(characters[0])) return {};
    return capitals(characters.data(), count);
}

} // namespace

std::string textOfModifiers(std::uint64_t flags) {
    constexpr std::pair<std::uint64_t, std::string_view> modifiers[] = {{ModifierFlag::control, "⌃"},
                                                                        {ModifierFlag::option, "⌥"},
                                                                        {ModifierFlag::shift, "⇧"},
                                                                        {ModifierFlag::command, "⌘"}};
    std::string text;
    for (const auto& [flag, sign] : modifiers) {
        if (flags & flag) text += sign;
    }
    return text;
}

std::string nameOfKey(std::int64_t keyCode, std::string_view space) {
    if (keyCode == spaceBar) return std::string(space);
    if (const auto sign = nameIn(signs, keyCode); !sign.empty()) return std::string(sign);
    if (keyCode >= 0 && keyCode <= lastKeyCode) {
        if (auto letters = typedBy(keyCode); !letters.empty()) return letters;
    }
    std::string name(nameIn(printed, keyCode));
    if (name.empty()) name.append("#").append(std::to_string(keyCode));
    return name;
}

std::string textOf(const InputShortcut& shortcut, std::string_view space) {
    return textOfModifiers(static_cast<std::uint64_t>(shortcut.modifierFlags)) +
           nameOfKey(shortcut.keyCode, space);
}

} // namespace quorvane
