#include <algorithm>
#include <deque>
#include <thread>
#include <utility>

#include "macos/standins/StandIns.h"

namespace quorvane::standins {
namespace {

const std::thread::id mainThread = std::this_thread::get_id();
constexpr int referencesOfConstants = 1000; // So many that one release too many does no harm but is seen.

struct Heap {
    std::deque<Object> constants, objects; ///< The addresses of a deque's elements stay.
    std::vector<std::string> faults;
};

Heap& heap() {
    static Heap heap;
    return heap;
}

CFIndex lengthInUtf16(std::string_view utf8) {
    return std::ranges::count_if(utf8, [](unsigned char byte) { return (byte & 0xc0) != 0x80; }) +
           std::ranges::count_if(utf8, [](unsigned char byte) { return byte >= 0xf0; });
}

const void* addConstant(Object object) {
    object.references = referencesOfConstants;
    return &heap().constants.emplace_back(std::move(object));
}

} // namespace

System& system() {
    static System system;
    return system;
}

std::vector<std::string> restartSystem() {
    system() = {};
    for (const auto& object : heap().objects) {
        if (object.references > 0) addFault("leaked", std::to_string(object.type) + ' ' + object.text);
    }
    for (auto& object : heap().constants) {
        if (std::exchange(object.references, referencesOfConstants) != referencesOfConstants)
            addFault("retained and released unequally", object.text);
    }
    heap().objects.clear();
    return std::exchange(heap().faults, {});
}

const void* addObject(Object object) {
    return &heap().objects.emplace_back(std::move(object));
}

CFTypeRef addString(std::string_view utf8) {
    if (std::ranges::any_of(utf8, [](unsigned char byte) { return byte >= 0xf5; })) return nullptr;
    return addObject({.type = string, .text = std::string(utf8), .length = lengthInUtf16(utf8)});
}

CFTypeRef addValue(const PropertyList& value) {
    if (const auto* text = value.string()) return addString(*text);
    if (const auto* is = value.boolean()) return CFRetain(*is ? kCFBooleanTrue : kCFBooleanFalse);
    if (const auto* integer = value.integer())
        return addObject({.type = number, .value = static_cast<double>(*integer)});
    if (const auto* real = value.real()) return addObject({.type = number, .value = *real});
    if (const auto* bytes = value.data())
        return addObject({.type = data, .text = {bytes->begin(), bytes->end()}});
    Object entries{.type = dictionary};
    for (const auto& [key, entry] : *value.dictionary())
        entries.parts.insert(entries.parts.end(), {addString(key), addValue(entry)});
    return addObject(std::move(entries));
}

CFStringRef constant(std::string_view ascii) {
    return static_cast<CFStringRef>(
        addConstant({.type = string, .text = std::string(ascii), .length = lengthInUtf16(ascii)}));
}

void addFault(std::string_view caller, std::string_view fault) {
    heap().faults.push_back(std::string(caller) + ": " + std::string(fault));
}

void requireMain(std::string_view caller) {
    if (std::this_thread::get_id() != mainThread) addFault(caller, "not the main thread");
}

Object* use(const void* reference, std::string_view caller, CFTypeID type) {
    requireMain(caller);
    Object* object = nullptr;
    for (auto* objects : {&heap().constants, &heap().objects}) {
        for (auto& each : *objects) {
            if (&each == reference) object = &each;
        }
    }
    const auto* fault = !reference                            ? "null"
                        : !object                             ? "no object"
                        : object->references < 1              ? "used after its release"
                        : type != any && object->type != type ? "of another type"
                                                              : nullptr;
    if (!fault) return object;
    addFault(caller, fault);
    return nullptr;
}

Object* find(CFTypeID type, std::string_view text) {
    const auto object = std::ranges::find_if(heap().objects, [&](const Object& each) {
        return each.type == type && each.text == text && each.references > 0;
    });
    return object == heap().objects.end() ? nullptr : &*object;
}

} // namespace quorvane::standins

using namespace quorvane::standins;

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFBooleanRef kCFBooleanTrue = static_cast<CFBooleanRef>(addConstant({.type = boolean, .value = 1}));
const CFBooleanRef kCFBooleanFalse = static_cast<CFBooleanRef>(addConstant({.type = boolean}));
const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks{};
const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks{};

CFTypeRef CFRetain(CFTypeRef reference) {
    if (auto* object = use(reference, __func__)) ++object->references;
    return reference;
}

void CFRelease(CFTypeRef reference) {
    auto* object = use(reference, __func__);
    if (!object || --object->references > 0 || !object->ownsParts) return;
    for (const auto* part : object->parts)
        CFRelease(part);
}

CFTypeID CFGetTypeID(CFTypeRef reference) {
    const auto* object = use(reference, __func__);
    return object ? object->type : any;
}

CFTypeID CFStringGetTypeID() {
    return string;
}

CFTypeID CFBooleanGetTypeID() {
    return boolean;
}

CFTypeID CFNumberGetTypeID() {
    return number;
}

CFTypeID CFURLGetTypeID() {
    return url;
}

CFTypeID CFDictionaryGetTypeID() {
    return dictionary;
}

CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const UInt8* bytes, CFIndex size, CFStringEncoding,
                                    Boolean) {
    return static_cast<CFStringRef>(
        addString({reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size)}));
}

CFIndex CFStringGetLength(CFStringRef reference) {
    const auto* object = use(reference, __func__, string);
    return object ? object->length : 0;
}

CFIndex CFStringGetBytes(CFStringRef reference, CFRange range, CFStringEncoding encoding, UInt8, Boolean,
                         UInt8* buffer, CFIndex room, CFIndex* used) {
    const auto* object = use(reference, __func__, string);
    if (!object) return 0;
    const auto size = static_cast<CFIndex>(object->text.size());
    if (encoding != kCFStringEncodingUTF8 || range.length != object->length || (buffer && room < size))
        addFault(__func__, "not the whole string in UTF-8");
    if (buffer) object->text.copy(reinterpret_cast<char*>(buffer), static_cast<std::size_t>(room));
    *used = size;
    return lengthInUtf16(object->text);
}

CFTypeID CFDataGetTypeID() {
    return data;
}

CFIndex CFDataGetLength(CFDataRef reference) {
    const auto* object = use(reference, __func__, data);
    return object ? static_cast<CFIndex>(object->text.size()) : 0;
}

const UInt8* CFDataGetBytePtr(CFDataRef reference) {
    const auto* object = use(reference, __func__, data);
    return object ? reinterpret_cast<const UInt8*>(object->text.data()) : nullptr;
}

Boolean CFBooleanGetValue(CFBooleanRef reference) {
    const auto* object = use(reference, __func__, boolean);
    return object && object->value != 0;
}

Boolean CFNumberGetValue(CFNumberRef reference, CFNumberType type, void* result) {
    const auto* object = use(reference, __func__, number);
    if (!object || type != kCFNumberIntType) return false;
    auto& integer = *static_cast<int*>(result);
    integer = static_cast<int>(object->value);
    return integer == object->value;
}

CFURLRef CFURLCopyAbsoluteURL(CFURLRef reference) {
    const auto* object = use(reference, __func__, url);
    if (!object) return nullptr;
    return static_cast<CFURLRef>(addObject({.type = url, .parts = {CFRetain(object->parts.at(0))}}));
}

CFStringRef CFURLGetString(CFURLRef reference) {
    const auto* object = use(reference, __func__, url);
    return object ? static_cast<CFStringRef>(object->parts.at(0)) : nullptr;
}

CFIndex CFArrayGetCount(CFArrayRef reference) {
    const auto* object = use(reference, __func__, array);
    return object ? static_cast<CFIndex>(object->parts.size()) : 0;
}

const void* CFArrayGetValueAtIndex(CFArrayRef reference, CFIndex index) {
    const auto* object = use(reference, __func__, array);
    return object ? object->parts.at(static_cast<std::size_t>(index)) : nullptr;
}

CFDictionaryRef CFDictionaryCreate(CFAllocatorRef, const void** keys, const void** values, CFIndex count,
                                   const CFDictionaryKeyCallBacks* keyCallBacks,
                                   const CFDictionaryValueCallBacks* valueCallBacks) {
    if (keyCallBacks != &kCFTypeDictionaryKeyCallBacks || valueCallBacks != &kCFTypeDictionaryValueCallBacks)
        addFault(__func__, "retains nothing");
    Object object{.type = dictionary};
    for (CFIndex i = 0; i < count; ++i)
        object.parts.insert(object.parts.end(), {CFRetain(keys[i]), CFRetain(values[i])});
    return static_cast<CFDictionaryRef>(addObject(std::move(object)));
}

const void* CFDictionaryGetValue(CFDictionaryRef reference, const void* key) {
    const auto* object = use(reference, __func__, dictionary);
    const auto* wanted = use(key, __func__, string);
    for (std::size_t i = 0; object && wanted && i < object->parts.size(); i += 2) {
        if (static_cast<const Object*>(object->parts[i])->text == wanted->text) return object->parts[i + 1];
    }
    return nullptr;
}

CFRunLoopRef CFRunLoopGetMain() {
    return reinterpret_cast<CFRunLoopRef>(&heap());
}

CFRunLoopRef CFRunLoopGetCurrent() {
    return std::this_thread::get_id() == mainThread ? CFRunLoopGetMain() : nullptr;
}
