#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <list>
#include <thread>
#include <utility>

#include "macos/standins/StandIns.h"

namespace quorvane::standins {
namespace {

const std::thread::id mainThread = std::this_thread::get_id();
constexpr int referencesOfConstants = 1000; // So many that one release too many does no harm but is seen.

struct Heap {
    std::list<Object> objects; ///< Their addresses stay.
    std::vector<std::string> faults;
};

Heap& heap() {
    static Heap heap;
    return heap;
}

void addFault(std::string_view caller, std::string_view fault) {
    heap().faults.push_back(std::string(caller) + ": " + std::string(fault));
}

CFIndex lengthInUtf16(std::string_view utf8) {
    return std::ranges::count_if(utf8, [](unsigned char byte) { return (byte & 0xc0) != 0x80; }) +
           std::ranges::count_if(utf8, [](unsigned char byte) { return byte >= 0xf0; });
}

template <class Reference>
Reference addConstant(Object object) {
    object.references = object.referencesAtEnd = referencesOfConstants;
    return add<Reference>(std::move(object));
}

} // namespace

System& system() {
    static System system;
    return system;
}

std::vector<std::string> restartSystem() {
    system() = {};
    for (auto& object : heap().objects) {
        const int references = std::exchange(object.references, object.referencesAtEnd);
        if (references != object.referencesAtEnd)
            addFault("retained and released unequally", std::to_string(object.type) + ' ' + object.text);
    }
    heap().objects.remove_if([](const Object& object) { return object.references == 0; });
    return std::exchange(heap().faults, {});
}

const void* addObject(Object object) {
    return &heap().objects.emplace_back(std::move(object));
}

CFTypeRef addString(std::string_view utf8) {
    if (std::ranges::any_of(utf8, [](unsigned char byte) { return byte >= 0xf5; })) return nullptr;
    return add({.type = string, .text = std::string(utf8), .length = lengthInUtf16(utf8)});
}

CFTypeRef addValue(const PropertyList& value) {
    if (const auto* text = value.string()) return addString(*text);
    if (const auto* is = value.boolean()) return CFRetain(*is ? kCFBooleanTrue : kCFBooleanFalse);
    if (const auto* integer = value.integer())
        return add({.type = number, .value = static_cast<double>(*integer)});
    if (const auto* real = value.real()) return add({.type = number, .value = *real});
    if (const auto* bytes = value.data()) return add({.type = data, .text = {bytes->begin(), bytes->end()}});
    Object entries{.type = dictionary};
    for (const auto& [key, entry] : *value.dictionary())
        entries.parts.insert(entries.parts.end(), {addString(key), addValue(entry)});
    return add(std::move(entries));
}

CFStringRef constant(std::string_view ascii) {
    return addConstant<CFStringRef>(
        {.type = string, .text = std::string(ascii), .length = lengthInUtf16(ascii)});
}

void assertMainQueue(std::string_view caller) {
    if (CFRunLoopGetCurrent() == CFRunLoopGetMain()) return;
    std::cerr << "dispatch_assert_queue: " << caller << '\n';
    std::abort();
}

Object& use(const void* reference, std::string_view caller, CFTypeID type) {
    auto& objects = heap().objects;
    const auto found = std::ranges::find_if(objects, [&](const auto& each) { return &each == reference; });
    const auto* fault = found == objects.end()               ? "null, or no object"
                        : found->references < 1              ? "used after its release"
                        : type != any && found->type != type ? "of another type"
                                                             : nullptr;
    if (!fault) return *found;
    addFault(caller, fault);
    static Object empty;
    return empty = {};
}

Object* find(CFTypeID type, std::string_view text) {
    for (auto& each : heap().objects)
        if (each.type == type && each.text == text && each.references > 0) return &each;
    return nullptr;
}

} // namespace quorvane::standins

using namespace quorvane::standins;

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFBooleanRef kCFBooleanTrue = addConstant<CFBooleanRef>({.type = boolean, .value = 1});
const CFBooleanRef kCFBooleanFalse = addConstant<CFBooleanRef>({.type = boolean});
const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks{};
const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks{};

CFTypeRef CFRetain(CFTypeRef reference) {
    ++use(reference, __func__).references;
    return reference;
}

void CFRelease(CFTypeRef reference) {
    auto& object = use(reference, __func__);
    if (--object.references > 0 || !object.ownsParts) return;
    for (const auto* part : object.parts)
        CFRelease(part);
}

// clang-format off
CFTypeID CFGetTypeID(CFTypeRef reference) { return use(reference, __func__).type; }
CFTypeID CFStringGetTypeID() { return string; }
CFTypeID CFBooleanGetTypeID() { return boolean; }
CFTypeID CFNumberGetTypeID() { return number; }
CFTypeID CFDataGetTypeID() { return data; }
CFTypeID CFURLGetTypeID() { return url; }
CFTypeID CFDictionaryGetTypeID() { return dictionary; }

CFIndex CFStringGetLength(CFStringRef reference) { return use(reference, __func__, string).length; }
CFIndex CFDataGetLength(CFDataRef reference) { return std::ssize(use(reference, __func__, data).text); }
Boolean CFBooleanGetValue(CFBooleanRef reference) { return use(reference, __func__, boolean).value != 0; }
CFIndex CFArrayGetCount(CFArrayRef reference) { return std::ssize(use(reference, __func__, array).parts); }
CFRunLoopRef CFRunLoopGetMain() { return reinterpret_cast<CFRunLoopRef>(&heap()); }
// clang-format on

CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const UInt8* bytes, CFIndex size, CFStringEncoding,
                                    Boolean) {
    return static_cast<CFStringRef>(
        addString({reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size)}));
}

CFIndex CFStringGetBytes(CFStringRef reference, CFRange range, CFStringEncoding encoding, UInt8, Boolean,
                         UInt8* buffer, CFIndex room, CFIndex* used) {
    const auto& object = use(reference, __func__, string);
    *used = std::ssize(object.text);
    if (encoding != kCFStringEncodingUTF8 || range.length != object.length || (buffer && room < *used))
        addFault(__func__, "not the whole string in UTF-8");
    if (buffer) object.text.copy(reinterpret_cast<char*>(buffer), static_cast<std::size_t>(room));
    return lengthInUtf16(object.text);
}

const UInt8* CFDataGetBytePtr(CFDataRef reference) {
    return reinterpret_cast<const UInt8*>(use(reference, __func__, data).text.data());
}

Boolean CFNumberGetValue(CFNumberRef reference, CFNumberType type, void* result) {
    const auto value = use(reference, __func__, number).value;
    auto& integer = *static_cast<int*>(result);
    integer = static_cast<int>(value);
    return type == kCFNumberIntType && integer == value;
}

CFURLRef CFURLCopyAbsoluteURL(CFURLRef reference) {
    return add<CFURLRef>({.type = url, .parts = {CFRetain(CFURLGetString(reference))}});
}

CFStringRef CFURLGetString(CFURLRef reference) {
    return static_cast<CFStringRef>(use(reference, __func__, url).parts.at(0));
}

const void* CFArrayGetValueAtIndex(CFArrayRef reference, CFIndex index) {
    return use(reference, __func__, array).parts.at(static_cast<std::size_t>(index));
}

CFDictionaryRef CFDictionaryCreate(CFAllocatorRef, const void** keys, const void** values, CFIndex count,
                                   const CFDictionaryKeyCallBacks* keyCallBacks,
                                   const CFDictionaryValueCallBacks* valueCallBacks) {
    if (keyCallBacks != &kCFTypeDictionaryKeyCallBacks || valueCallBacks != &kCFTypeDictionaryValueCallBacks)
        addFault(__func__, "retains nothing");
    Object object{.type = dictionary};
    for (CFIndex i = 0; i < count; ++i)
        object.parts.insert(object.parts.end(), {CFRetain(keys[i]), CFRetain(values[i])});
    return add<CFDictionaryRef>(std::move(object));
}

const void* CFDictionaryGetValue(CFDictionaryRef reference, const void* key) {
    const auto& parts = use(reference, __func__, dictionary).parts;
    const auto& wanted = use(key, __func__, string).text;
    for (std::size_t i = 0; i < parts.size(); i += 2) {
        if (static_cast<const Object*>(parts[i])->text == wanted) return parts[i + 1];
    }
    return nullptr;
}

CFRunLoopRef CFRunLoopGetCurrent() {
    return std::this_thread::get_id() == mainThread ? CFRunLoopGetMain() : nullptr;
}
