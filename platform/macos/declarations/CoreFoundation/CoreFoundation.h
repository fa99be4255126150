#pragma once

// The part of Core Foundation that the macOS desktop uses, declared anew, for checks on other systems.

#include <cstddef>
#include <cstdint>

extern "C" {

// Base types: public SDK documentation.
using Boolean = unsigned char;
using UInt8 = std::uint8_t;
using UInt16 = std::uint16_t;
using UInt32 = std::uint32_t;
using UniChar = UInt16;
using UniCharCount = unsigned long;
using SInt32 = std::int32_t;
using OSStatus = SInt32;
using OSType = UInt32;
using OptionBits = UInt32;
using ItemCount = unsigned long;
using ByteCount = unsigned long;
using CFIndex = long;
using CFTypeID = unsigned long;
enum { noErr = 0 };

struct CFRange {
    CFIndex location;
    CFIndex length;
};
inline CFRange CFRangeMake(CFIndex location, CFIndex length) {
    return {location, length};
}

// Objects: public SDK documentation. References are pointers to types that nobody completes.
using CFTypeRef = const void*;
using CFAllocatorRef = const struct OpaqueCFAllocator*;
using CFStringRef = const struct OpaqueCFString*;
using CFMutableStringRef = struct OpaqueCFString*;
using CFDataRef = const struct OpaqueCFData*;
using CFLocaleRef = const struct OpaqueCFLocale*;
using CFBooleanRef = const struct OpaqueCFBoolean*;
using CFNumberRef = const struct OpaqueCFNumber*;
using CFURLRef = const struct OpaqueCFURL*;
using CFArrayRef = const struct OpaqueCFArray*;
using CFDictionaryRef = const struct OpaqueCFDictionary*;
using CFRunLoopRef = struct OpaqueCFRunLoop*;

extern const CFAllocatorRef kCFAllocatorDefault;
CFTypeRef CFRetain(CFTypeRef object);
void CFRelease(CFTypeRef object);
CFTypeID CFGetTypeID(CFTypeRef object);

// Strings: public SDK documentation, constant from the Rust bindings objc2-core-foundation.
using CFStringEncoding = UInt32;
enum { kCFStringEncodingUTF8 = 0x08000100 };
CFTypeID CFStringGetTypeID();
CFStringRef CFStringCreateWithBytes(CFAllocatorRef allocator, const UInt8* bytes, CFIndex size,
                                    CFStringEncoding encoding, Boolean isExternalRepresentation);
CFIndex CFStringGetLength(CFStringRef string);
CFIndex CFStringGetBytes(CFStringRef string, CFRange range, CFStringEncoding encoding, UInt8 lossByte,
                         Boolean isExternalRepresentation, UInt8* buffer, CFIndex room, CFIndex* used);
CFStringRef CFStringCreateWithCharacters(CFAllocatorRef allocator, const UniChar* characters, CFIndex count);
CFMutableStringRef CFStringCreateMutableCopy(CFAllocatorRef allocator, CFIndex longest, CFStringRef string);
void CFStringUppercase(CFMutableStringRef string, CFLocaleRef locale);

// Data: public SDK documentation.
CFTypeID CFDataGetTypeID();
CFIndex CFDataGetLength(CFDataRef data);
const UInt8* CFDataGetBytePtr(CFDataRef data);

// Booleans and numbers: public SDK documentation, constant from the Rust bindings objc2-core-foundation.
extern const CFBooleanRef kCFBooleanTrue;
extern const CFBooleanRef kCFBooleanFalse;
CFTypeID CFBooleanGetTypeID();
Boolean CFBooleanGetValue(CFBooleanRef boolean);
enum CFNumberType : CFIndex { kCFNumberIntType = 9 };
CFTypeID CFNumberGetTypeID();
Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value);

// Addresses: public SDK documentation.
CFTypeID CFURLGetTypeID();
CFURLRef CFURLCopyAbsoluteURL(CFURLRef url);
CFStringRef CFURLGetString(CFURLRef url);

// Containers: public SDK documentation. Only the addresses of the callbacks are ever used.
struct CFDictionaryKeyCallBacks {
    CFIndex version;
};
struct CFDictionaryValueCallBacks {
    CFIndex version;
};
extern const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks;
extern const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks;
CFIndex CFArrayGetCount(CFArrayRef array);
const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index);
CFTypeID CFDictionaryGetTypeID();
CFDictionaryRef CFDictionaryCreate(CFAllocatorRef allocator, const void** keys, const void** values,
                                   CFIndex count, const CFDictionaryKeyCallBacks* keyCallBacks,
                                   const CFDictionaryValueCallBacks* valueCallBacks);
const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key);

// Run loops: public SDK documentation.
CFRunLoopRef CFRunLoopGetCurrent();
CFRunLoopRef CFRunLoopGetMain();

} // extern "C"
