#import "platform/macos/foundation/PropertyListBridge.h"

#include <cstdint>
#include <limits>
#include <utility>

namespace quorvane {
namespace {

constexpr int deepestNesting = 64; // far deeper than any setting, far from the end of the stack

PropertyList fromNSNumber(NSNumber* number) {
    // The two booleans are numbers, too: what tells them apart is which objects they are.
    const auto object = (__bridge CFTypeRef)number;
    if (object == kCFBooleanTrue) return true;
    if (object == kCFBooleanFalse) return false;
    const char type = *number.objCType;
    if (type == *@encode(double) || type == *@encode(float)) return number.doubleValue;
    const bool isUnsigned = type == *@encode(unsigned long long) || type == *@encode(unsigned long);
    const auto value = number.unsignedLongLongValue;
    if (isUnsigned && value > static_cast<unsigned long long>(std::numeric_limits<std::int64_t>::max()))
        return static_cast<double>(value);
    return std::int64_t{number.longLongValue};
}

PropertyList fromNSData(NSData* data) {
    const auto* bytes = static_cast<const std::uint8_t*>(data.bytes); // null when there are none
    return bytes ? PropertyList::Data(bytes, bytes + data.length) : PropertyList::Data();
}

PropertyList convert(id _Nullable object, int depth) {
    if (!object || depth > deepestNesting) return {};
    if ([object isKindOfClass:[NSString class]]) return fromNSString(object);
    if ([object isKindOfClass:[NSNumber class]]) return fromNSNumber(object);
    if ([object isKindOfClass:[NSData class]]) return fromNSData(object);
    if ([object isKindOfClass:[NSDate class]]) {
        NSDate* date = object;
        return PropertyList::Date{date.timeIntervalSinceReferenceDate};
    }
    if ([object isKindOfClass:[NSArray class]]) {
        PropertyList::Array array;
        for (id element in static_cast<NSArray*>(object)) {
            auto value = convert(element, depth + 1);
            if (!value.isNothing()) array.push_back(std::move(value));
        }
        return array;
    }
    if (![object isKindOfClass:[NSDictionary class]]) return {};
    NSDictionary* entries = object;
    PropertyList::Dictionary dictionary;
    for (id key in entries) {
        if (![key isKindOfClass:[NSString class]]) continue;
        auto value = convert([entries objectForKey:key], depth + 1);
        if (!value.isNothing()) dictionary.insert_or_assign(fromNSString(key), std::move(value));
    }
    return dictionary;
}

} // namespace

NSString* _Nullable toNSString(std::string_view text) {
    return [[NSString alloc] initWithBytes:text.empty() ? "" : text.data()
                                    length:text.size()
                                  encoding:NSUTF8StringEncoding];
}

NSString* _Nonnull shownText(std::string_view text) {
    NSString* converted = toNSString(text);
    return converted ? converted : @"";
}

std::string fromNSString(NSString* _Nullable text) {
    // Unlike a C string, data may have zero bytes in it.
    NSData* data = [text dataUsingEncoding:NSUTF8StringEncoding];
    if (data.length == 0) return {};
    return {static_cast<const char*>(data.bytes), data.length};
}

id _Nullable toNSObject(const PropertyList& value) {
    if (const auto* boolean = value.boolean()) return [NSNumber numberWithBool:*boolean];
    if (const auto* integer = value.integer()) return [NSNumber numberWithLongLong:*integer];
    if (const auto* real = value.real()) return [NSNumber numberWithDouble:*real];
    if (const auto* text = value.string()) return toNSString(*text);
    if (const auto* date = value.date())
        return [NSDate dateWithTimeIntervalSinceReferenceDate:date->secondsSince2001];
    if (const auto* data = value.data()) return [NSData dataWithBytes:data->data() length:data->size()];
    if (const auto* elements = value.array()) {
        NSMutableArray* array = [NSMutableArray array];
        for (const auto& element : *elements) {
            if (id object = toNSObject(element)) [array addObject:object];
        }
        return array;
    }
    const auto* entries = value.dictionary();
    if (!entries) return nil;
    NSMutableDictionary* dictionary = [NSMutableDictionary dictionary];
    for (const auto& [key, entry] : *entries) {
        NSString* name = toNSString(key);
        id object = toNSObject(entry);
        if (name && object) dictionary[name] = object;
    }
    return dictionary;
}

PropertyList fromNSObject(id _Nullable object) {
    return convert(object, 0);
}

} // namespace quorvane
