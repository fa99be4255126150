#include "platform/linux/keyboard/KeyCodes.h"

#include <algorithm>
#include <iterator>

namespace quorvane {
namespace {

struct Position {
    std::int64_t keyCode;
    std::uint8_t xKeycode; ///< The kernel's number plus 8.
};

// clang-format off
constexpr Position positions[] = {
    // Escape, F1 to F12, F13 to F20
    {0x35, 9}, {0x7a, 67}, {0x78, 68}, {0x63, 69}, {0x76, 70}, {0x60, 71}, {0x61, 72}, {0x62, 73},
    {0x64, 74}, {0x65, 75}, {0x6d, 76}, {0x67, 95}, {0x6f, 96}, {0x69, 191}, {0x6b, 192}, {0x71, 193},
    {0x6a, 194}, {0x40, 195}, {0x4f, 196}, {0x50, 197}, {0x5a, 198},
    // grave, 1 to 0, minus, equal, JIS Yen, Delete
    {0x32, 49}, {0x12, 10}, {0x13, 11}, {0x14, 12}, {0x15, 13}, {0x17, 14}, {0x16, 15}, {0x1a, 16},
    {0x1c, 17}, {0x19, 18}, {0x1d, 19}, {0x1b, 20}, {0x18, 21}, {0x5d, 132}, {0x33, 22},
    // Tab, Q to P, brackets, Return
    {0x30, 23}, {0x0c, 24}, {0x0d, 25}, {0x0e, 26}, {0x0f, 27}, {0x11, 28}, {0x10, 29}, {0x20, 30},
    {0x22, 31}, {0x1f, 32}, {0x23, 33}, {0x21, 34}, {0x1e, 35}, {0x24, 36},
    // A to L, semicolon, quote, backslash
    {0x00, 38}, {0x01, 39}, {0x02, 40}, {0x03, 41}, {0x05, 42}, {0x04, 43}, {0x26, 44}, {0x28, 45},
    {0x25, 46}, {0x29, 47}, {0x27, 48}, {0x2a, 51},
    // the ISO key, Z to M, comma, period, slash, JIS underscore
    {0x0a, 94}, {0x06, 52}, {0x07, 53}, {0x08, 54}, {0x09, 55}, {0x0b, 56}, {0x2d, 57}, {0x2e, 58},
    {0x2b, 59}, {0x2f, 60}, {0x2c, 61}, {0x5e, 97},
    // Space, JIS Eisu and Kana, the context menu
    {0x31, 65}, {0x66, 131}, {0x68, 130}, {0x6e, 135},
    // Help is where Insert is; Home, Page Up, forward Delete, End, Page Down
    {0x72, 118}, {0x73, 110}, {0x74, 112}, {0x75, 119}, {0x77, 115}, {0x79, 117},
    // left, right, down, up
    {0x7b, 113}, {0x7c, 114}, {0x7d, 116}, {0x7e, 111},
    // the keypad: Clear is where Num Lock is; = / * - + Enter . JIS comma, 0 to 9
    {0x47, 77}, {0x51, 125}, {0x4b, 106}, {0x43, 63}, {0x4e, 82}, {0x45, 86}, {0x4c, 104}, {0x41, 91},
    {0x5f, 129}, {0x52, 90}, {0x53, 87}, {0x54, 88}, {0x55, 89}, {0x56, 83}, {0x57, 84}, {0x58, 85},
    {0x59, 79}, {0x5b, 80}, {0x5c, 81},
    // volume up, down, mute
    {0x48, 123}, {0x49, 122}, {0x4a, 121},
};
// clang-format on

} // namespace

std::optional<std::uint8_t> xKeycodeOf(std::int64_t keyCode) {
    const auto* const position = std::ranges::find(positions, keyCode, &Position::keyCode);
    if (position == std::end(positions)) return std::nullopt;
    return position->xKeycode;
}

std::optional<std::int64_t> keyCodeOf(std::uint8_t xKeycode) {
    const auto* const position = std::ranges::find(positions, xKeycode, &Position::xKeycode);
    if (position == std::end(positions)) return std::nullopt;
    return position->keyCode;
}

} // namespace quorvane
