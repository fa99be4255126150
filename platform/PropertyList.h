#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace quorvane {

/// A property-list value: nothing, a boolean, a number, a string, data, a date, an array or a dictionary.
///
/// A value never changes. Containers are shared by pointer, so copying a dictionary of ten thousand entries
/// costs a pointer, and changing one entry makes a new container whose other entries are shared.
class PropertyList {
public:
    using Array = std::vector<PropertyList>;
    using Dictionary = std::map<std::string, PropertyList, std::less<>>;
    using Data = std::vector<std::uint8_t>;

    struct Date {
        double secondsSince2001; // UTC
        bool operator==(const Date&) const = default;
    };

    PropertyList() = default; ///< Nothing: what a missing key reads as.
    PropertyList(bool value) : value_(value) {}
    PropertyList(int value) : value_(std::int64_t{value}) {}
    PropertyList(std::int64_t value) : value_(value) {}
    PropertyList(double value) : value_(value) {}
    PropertyList(std::string value) : value_(std::move(value)) {}
    PropertyList(std::string_view value) : value_(std::string(value)) {}
    PropertyList(const char* value) : value_(std::string(value)) {}
    PropertyList(Date value) : value_(value) {}
    PropertyList(Data value) : value_(std::make_shared<const Data>(std::move(value))) {}
    PropertyList(Array value) : value_(std::make_shared<const Array>(std::move(value))) {}
    PropertyList(Dictionary value) : value_(std::make_shared<const Dictionary>(std::move(value))) {}

    bool isNothing() const { return std::holds_alternative<std::monostate>(value_); }

    // The value if it is of that type, else null. The pointer lives as long as this value.
    const bool* boolean() const { return std::get_if<bool>(&value_); }
    const std::int64_t* integer() const { return std::get_if<std::int64_t>(&value_); }
    const double* real() const { return std::get_if<double>(&value_); }
    const std::string* string() const { return std::get_if<std::string>(&value_); }
    const Date* date() const { return std::get_if<Date>(&value_); }
    const Data* data() const { return pointee<Data>(); }
    const Array* array() const { return pointee<Array>(); }
    const Dictionary* dictionary() const { return pointee<Dictionary>(); }

    /// The value as a truth: numbers other than 0 and the strings "YES", "true" and non-zero numerals are
    /// true; everything else is false.
    bool boolValue() const;

    /// The value as a whole number: fractions are cut off, numbers out of range become the nearest one in
    /// range, numerals in strings are read, everything else (and what is not a number) is 0.
    std::int64_t integerValue() const;

    /// The value as a number: numerals at the beginning of strings are read, with a point, everything else is
    /// 0.
    double realValue() const;

    /// The entry of a dictionary; nothing when the key is missing or this is no dictionary.
    const PropertyList& operator[](std::string_view key) const;

    /// A copy of this dictionary (an empty one, if it is none) with one entry set, or removed by nothing.
    PropertyList with(std::string_view key, PropertyList value) const;

    /// Same type and same contents.
    bool operator==(const PropertyList& other) const;

private:
    template <class T>
    const T* pointee() const {
        const auto* shared = std::get_if<std::shared_ptr<const T>>(&value_);
        return shared ? shared->get() : nullptr;
    }

    std::variant<std::monostate, bool, std::int64_t, double, std::string, Date, std::shared_ptr<const Data>,
                 std::shared_ptr<const Array>, std::shared_ptr<const Dictionary>>
        value_;
};

} // namespace quorvane
