#include "platform/PropertyList.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <locale>
#include <sstream>
#include <type_traits>

namespace quorvane {
namespace {

std::int64_t wholeNumber(double value) {
    using Limits = std::numeric_limits<std::int64_t>;
    if (std::isnan(value)) return 0;
    // The limits are not exact in double precision: 2^63 itself is already out of range.
    if (value >= 9223372036854775808.0) return Limits::max();
    if (value < -9223372036854775808.0) return Limits::min();
    return static_cast<std::int64_t>(value);
}

template <class T>
struct IsShared : std::false_type {};
template <class T>
struct IsShared<std::shared_ptr<T>> : std::true_type {};

} // namespace

bool PropertyList::boolValue() const {
    if (const auto* value = boolean()) return *value;
    if (const auto* value = real()) return *value != 0 && !std::isnan(*value);
    if (const auto* text = string()) {
        if (!text->empty() && std::string_view("YyTt").find(text->front()) != std::string_view::npos)
            return true;
    }
    return integerValue() != 0;
}

std::int64_t PropertyList::integerValue() const {
    if (const auto* value = boolean()) return *value ? 1 : 0;
    if (const auto* value = integer()) return *value;
    if (const auto* value = real()) return wholeNumber(*value);
    if (const auto* text = string()) return std::strtoll(text->c_str(), nullptr, 10);
    return 0;
}

double PropertyList::realValue() const {
    if (const auto* value = real()) return *value;
    const auto* text = string();
    if (!text) return static_cast<double>(integerValue());
    std::istringstream stream(*text);
    stream.imbue(std::locale::classic()); // whatever the user's language writes for the point
    double value = 0;
    stream >> value;
    return value;
}

const PropertyList& PropertyList::operator[](std::string_view key) const {
    static const PropertyList nothing;
    const auto* entries = dictionary();
    if (!entries) return nothing;
    const auto found = entries->find(key);
    return found == entries->end() ? nothing : found->second;
}

PropertyList PropertyList::with(std::string_view key, PropertyList value) const {
    Dictionary copy;
    if (const auto* entries = dictionary()) copy = *entries;
    if (value.isNothing())
        copy.erase(std::string(key));
    else
        copy.insert_or_assign(std::string(key), std::move(value));
    return copy;
}

bool PropertyList::operator==(const PropertyList& other) const {
    if (value_.index() != other.value_.index()) return false;
    return std::visit(
        [&other](const auto& mine) {
            using T = std::decay_t<decltype(mine)>;
            const auto& theirs = std::get<T>(other.value_);
            if constexpr (IsShared<T>::value)
                return mine == theirs || *mine == *theirs;
            else
                return mine == theirs;
        },
        value_);
}

} // namespace quorvane
