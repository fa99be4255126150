#include "platform/macos/CFValues.h"

namespace quorvane {

std::optional<std::string> stringOf(CFTypeRef value) {
    const auto string = typed<CFStringRef>(value, CFStringGetTypeID());
    if (!string) return std::nullopt;
    const auto length = CFStringGetLength(string);
    CFIndex size = 0;
    const auto convert = [&](UInt8* bytes, CFIndex room) {
        constexpr UInt8 noSubstitute = 0;
        return CFStringGetBytes(string, CFRangeMake(0, length), kCFStringEncodingUTF8, noSubstitute, false,
                                bytes, room, &size);
    };
    if (convert(nullptr, 0) != length) return std::nullopt;
    std::string text(static_cast<std::size_t>(size), '\0');
    if (convert(reinterpret_cast<UInt8*>(text.data()), size) != length) return std::nullopt;
    return text;
}

std::optional<bool> booleanOf(CFTypeRef value) {
    const auto boolean = typed<CFBooleanRef>(value, CFBooleanGetTypeID());
    if (!boolean) return std::nullopt;
    return CFBooleanGetValue(boolean) != 0;
}

std::optional<int> integerOf(CFTypeRef value) {
    const auto number = typed<CFNumberRef>(value, CFNumberGetTypeID());
    int integer = 0;
    if (!number || !CFNumberGetValue(number, kCFNumberIntType, &integer)) return std::nullopt;
    return integer;
}

CFRef<CFStringRef> makeString(std::string_view text) {
    return CFRef<CFStringRef>::adopt(
        CFStringCreateWithBytes(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(text.data()),
                                static_cast<CFIndex>(text.size()), kCFStringEncodingUTF8, false));
}

} // namespace quorvane
