#include "control/PlainValue.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace quorvane {
namespace {

constexpr auto dataKey = "$data", dateKey = "$date", realKey = "$real", dictionaryKey = "$dictionary";
constexpr int hexadecimal = 16;

PropertyList wrapped(const char* key, PropertyList value) {
    return PropertyList::Dictionary{{key, std::move(value)}};
}

std::string textOfReal(double number) {
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return {text.data(), end};
}

std::string textOfData(const PropertyList::Data& data) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const auto byte : data)
        text.append({digits[byte / hexadecimal], digits[byte % hexadecimal]});
    return text;
}

bool looksWrapped(const PropertyList::Dictionary& dictionary) {
    return dictionary.size() == 1 && dictionary.begin()->first.starts_with('$');
}

std::optional<double> realOf(const PropertyList& value) {
    const auto* text = value.string();
    double number = 0;
    if (!text) return std::nullopt;
    const auto* end = text->data() + text->size();
    const auto read = std::from_chars(text->data(), end, number);
    return read.ec == std::errc() && read.ptr == end ? std::optional(number) : std::nullopt;
}

std::optional<PropertyList::Data> dataOf(const PropertyList& value) {
    const auto* text = value.string();
    if (!text || text->size() % 2 != 0) return std::nullopt;
    PropertyList::Data data(text->size() / 2);
    for (std::size_t i = 0; i < data.size(); ++i) {
        const auto* digits = text->data() + 2 * i;
        if (std::from_chars(digits, digits + 2, data[i], hexadecimal).ptr != digits + 2) return std::nullopt;
    }
    return data;
}

template <class Container, class Convert>
PropertyList converted(const Container& container, Convert convert) {
    Container result = container;
    for (auto& element : result) {
        if constexpr (std::is_same_v<Container, PropertyList::Array>)
            element = convert(element);
        else
            element.second = convert(element.second);
    }
    return result;
}

} // namespace

PropertyList plainOf(const PropertyList& value) {
    if (const auto* data = value.data()) return wrapped(dataKey, textOfData(*data));
    if (const auto* date = value.date()) return wrapped(dateKey, textOfReal(date->secondsSince2001));
    if (const auto* real = value.real()) {
        const bool isFraction = std::isfinite(*real) && *real != std::trunc(*real);
        return isFraction ? value : wrapped(realKey, textOfReal(*real));
    }
    if (const auto* array = value.array()) return converted(*array, plainOf);
    const auto* dictionary = value.dictionary();
    if (!dictionary) return value;
    auto plain = converted(*dictionary, plainOf);
    return looksWrapped(*dictionary) ? wrapped(dictionaryKey, std::move(plain)) : plain;
}

PropertyList ofPlain(const PropertyList& plain) {
    if (const auto* array = plain.array()) return converted(*array, ofPlain);
    const auto* dictionary = plain.dictionary();
    if (!dictionary) return plain;
    if (const auto* inner = plain[dictionaryKey].dictionary(); inner && dictionary->size() == 1)
        return converted(*inner, ofPlain);
    if (looksWrapped(*dictionary)) {
        if (auto data = dataOf(plain[dataKey])) return std::move(*data);
        if (const auto date = realOf(plain[dateKey])) return PropertyList::Date{*date};
        if (const auto real = realOf(plain[realKey])) return *real;
    }
    return converted(*dictionary, ofPlain);
}

} // namespace quorvane
