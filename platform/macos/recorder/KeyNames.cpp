#include "platform/macos/recorder/KeyNames.h"

#include <array>
#include <utility>

#include "platform/GlobalEventMonitor.h"
#include "platform/macos/CFRef.h"
#include "platform/macos/CFValues.h"
#include "platform/macos/MainThread.h"
#include "settings/KeyNames.h"

namespace quorvane {
namespace {

constexpr std::int64_t spaceBar = 0x31;
constexpr std::int64_t lastKeyCode = 0x7f;

// clang-format off
constexpr KeyName signs[] = {
    {"↩", 0x24}, {"⇥", 0x30}, {"⌫", 0x33}, {"⎋", 0x35}, {"⌧", 0x47}, {"⌤", 0x4c}, {"↖", 0x73}, {"⇞", 0x74},
    {"⌦", 0x75}, {"↘", 0x77}, {"⇟", 0x79}, {"←", 0x7b}, {"→", 0x7c}, {"↓", 0x7d}, {"↑", 0x7e},
};

/// A keypad's, and the key that Apple prints otherwise.
constexpr KeyName printedBesides[] = {
    {".", 0x41}, {"*", 0x43}, {"+", 0x45}, {"/", 0x4b}, {"-", 0x4e}, {"=", 0x51}, {"0", 0x52}, {"1", 0x53},
    {"2", 0x54}, {"3", 0x55}, {"4", 0x56}, {"5", 0x57}, {"6", 0x58}, {"7", 0x59}, {"8", 0x5b}, {"9", 0x5c},
    {"§", 0x0a},
};
// clang-format on

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
    for (const auto name : {nameIn(signs, keyCode), nameIn(functionKeys, keyCode)})
        if (!name.empty()) return std::string(name);
    if (keyCode >= 0 && keyCode <= lastKeyCode) {
        if (auto letters = typedBy(keyCode); !letters.empty()) return letters;
    }
    for (const auto name : {nameIn(printedBesides, keyCode), nameIn(printedKeys, keyCode)})
        if (!name.empty()) return std::string(name);
    return "#" + std::to_string(keyCode);
}

std::string textOf(const InputShortcut& shortcut, std::string_view space) {
    return textOfModifiers(static_cast<std::uint64_t>(shortcut.modifierFlags)) +
           nameOfKey(shortcut.keyCode, space);
}

} // namespace quorvane
