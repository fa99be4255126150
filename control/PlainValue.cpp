#include "control/PlainValue.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <locale>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

namespace quorvane {
namespace {

constexpr auto dataKey = "$data", dateKey = "$date", realKey = "$real", dictionaryKey = "$dictionary";
constexpr int hexadecimal = 16;

PropertyList wrapped(const char* key, PropertyList value) {
    return PropertyList::Dictionary{{key, std::move(value)}};
}

// By streams: not every standard library converts real numbers otherwise without the user's decimal point.

std::optional<double> realOf(const std::string& text) {
    const bool isNegative = text.starts_with('-');
    const auto magnitude = std::string_view(text).substr(isNegative ? 1 : 0);
    for (const double special :
         {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()})
        if (magnitude == (std::isnan(special) ? "nan" : "inf")) return isNegative ? -special : special;
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    double number = 0;
    const bool isWhole =
        (stream >> std::noskipws >> number) && stream.peek() == std::istringstream::traits_type::eof();
    return isWhole ? std::optional(number) : std::nullopt;
}

/// As short as it can be and still come back as the same number.
std::string textOfReal(double number) {
    if (!std::isfinite(number)) return std::isnan(number) ? "nan" : number > 0 ? "inf" : "-inf";
    constexpr int mostDigits = std::numeric_limits<double>::max_digits10;
    std::string text;
    for (int digits = std::numeric_limits<double>::digits10; digits <= mostDigits; ++digits) {
        std::ostringstream stream;
        stream.imbue(std::locale::classic());
        stream.precision(digits);
        stream << number;
        text = stream.str();
        if (realOf(text) == number) break;
    }
    return text;
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
    return text ? realOf(*text) : std::nullopt;
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
