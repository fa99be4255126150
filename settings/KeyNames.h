#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace quorvane {

// What is printed on the keys at the positions that the program's key codes number.

struct KeyName {
    std::string_view name;
    std::int64_t keyCode;
};

// clang-format off
/// The keys of an American keyboard that type something, but for the keypad, and the one more of ISO keyboards.
inline constexpr KeyName printedKeys[] = {
    {"A", 0x00}, {"B", 0x0b}, {"C", 0x08}, {"D", 0x02}, {"E", 0x0e}, {"F", 0x03}, {"G", 0x05}, {"H", 0x04},
    {"I", 0x22}, {"J", 0x26}, {"K", 0x28}, {"L", 0x25}, {"M", 0x2e}, {"N", 0x2d}, {"O", 0x1f}, {"P", 0x23},
    {"Q", 0x0c}, {"R", 0x0f}, {"S", 0x01}, {"T", 0x11}, {"U", 0x20}, {"V", 0x09}, {"W", 0x0d}, {"X", 0x07},
    {"Y", 0x10}, {"Z", 0x06},
    {"0", 0x1d}, {"1", 0x12}, {"2", 0x13}, {"3", 0x14}, {"4", 0x15}, {"5", 0x17}, {"6", 0x16}, {"7", 0x1a},
    {"8", 0x1c}, {"9", 0x19},
    {"`", 0x32}, {"-", 0x1b}, {"=", 0x18}, {"[", 0x21}, {"]", 0x1e}, {";", 0x29}, {"'", 0x27}, {"\\", 0x2a},
    {",", 0x2b}, {".", 0x2f}, {"/", 0x2c}, {"<", 0x0a},
};

inline constexpr KeyName functionKeys[] = {
    {"F1", 0x7a}, {"F2", 0x78}, {"F3", 0x63}, {"F4", 0x76}, {"F5", 0x60}, {"F6", 0x61}, {"F7", 0x62},
    {"F8", 0x64}, {"F9", 0x65}, {"F10", 0x6d}, {"F11", 0x67}, {"F12", 0x6f}, {"F13", 0x69}, {"F14", 0x6b},
    {"F15", 0x71}, {"F16", 0x6a}, {"F17", 0x40}, {"F18", 0x4f}, {"F19", 0x50}, {"F20", 0x5a},
};
// clang-format on

/// Empty when it is not in the table.
template <std::size_t count>
constexpr std::string_view nameIn(const KeyName (&names)[count], std::int64_t keyCode) {
    for (const auto& key : names)
        if (key.keyCode == keyCode) return key.name;
    return {};
}

} // namespace quorvane
