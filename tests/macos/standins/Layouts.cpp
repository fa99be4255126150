#include <algorithm>
#include <cctype>
#include <string>

#include "macos/standins/StandIns.h"

using namespace quorvane::standins;

UInt8 LMGetKbdType() {
    return 40;
}

OSStatus UCKeyTranslate(const UCKeyboardLayout* layout, UInt16 keyCode, UInt16 action, UInt32 modifiers,
                        UInt32 keyboardType, OptionBits options, UInt32* deadKeys, UniCharCount room,
                        UniCharCount* count, UniChar* characters) {
    if (!layout || !deadKeys || action != kUCKeyActionDisplay || modifiers != 0 ||
        keyboardType != LMGetKbdType() || options != kUCKeyTranslateNoDeadKeysMask)
        return paramErr;
    const auto& typed = system().typedByKeys[keyCode];
    *count = std::min<UniCharCount>(typed.size(), room);
    std::copy_n(typed.begin(), *count, characters);
    return noErr;
}

// Strings of the first two thousand characters.

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar* characters, CFIndex count) {
    std::string utf8;
    for (const UniChar* each = characters; each != characters + count; ++each) {
        if (*each >= 0x80) utf8 += static_cast<char>(0xc0 | *each >> 6);
        utf8 += static_cast<char>(*each < 0x80 ? *each : 0x80 | (*each & 0x3f));
    }
    return static_cast<CFStringRef>(addString(utf8));
}

CFMutableStringRef CFStringCreateMutableCopy(CFAllocatorRef, CFIndex, CFStringRef reference) {
    return static_cast<CFMutableStringRef>(
        const_cast<void*>(addString(use(reference, __func__, string).text)));
}

void CFStringUppercase(CFMutableStringRef reference, CFLocaleRef) {
    auto& object = use(reference, __func__, string);
    for (auto& byte : object.text)
        byte = static_cast<char>(std::toupper(static_cast<unsigned char>(byte)));
    if (object.text == "\u00fc") object.text = "\u00dc";
    if (object.text != "\u00df") return;
    object.text = "SS";
    object.length = 2;
}
