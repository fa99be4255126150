#include <gtest/gtest.h>

#include <limits>

#include "input/MonochromeTest.h"

namespace quorvane {
namespace {

using Bytes = std::vector<std::uint8_t>;

struct Picture {
    const char* what;
    Size size;
    Bytes bytes;
    bool isMonochrome;
};

TEST(MonochromeTest, TellsIconsOfOneColourFromColouredOnes) {
    const Bytes grey{9, 9, 9, 255};
    const Picture pictures[] = {
        {"grey all over", {2, 1}, {80, 80, 80, 255, 80, 80, 80, 255}, true},
        {"black and white", {2, 1}, {0, 0, 0, 255, 255, 255, 255, 255}, false},
        {"first and second channel just close enough", {2, 1}, {10, 10, 200, 0, 13, 13, 0, 0}, true},
        {"no two channels close enough", {2, 1}, {10, 10, 200, 0, 14, 13, 0, 0}, false},
        {"second channel and last third byte: one colour", {2, 1}, {10, 5, 99, 0, 16, 5, 16, 0}, true},
        {"third channel wild but for the last pixel", {3, 1}, {8, 8, 0, 0, 8, 8, 255, 0, 8, 8, 8, 0}, true},
        {"first channel alone may vary", {2, 1}, {0, 40, 0, 0, 3, 40, 3, 0}, true},
        {"first channel varies widely", {2, 1}, {0, 40, 0, 0, 90, 40, 90, 0}, false},
        {"zero width", {0, 5}, grey, false},
        {"zero height", {5, 0}, grey, false},
        {"less than a point high", {5, 0.9}, grey, false},
        {"no bytes", {5, 5}, {}, false},
        {"three bytes of a pixel", {5, 5}, {1, 1, 1}, false},
        {"fewer bytes than the size promises", {500, 500}, grey, true},
        {"more bytes than the size needs", {1, 1}, {9, 9, 9, 0, 255, 0, 255, 0}, true},
        {"not a number", {std::numeric_limits<double>::quiet_NaN(), 5}, grey, false},
        {"negative", {-3, 5}, grey, false},
        {"as large as numbers go", {std::numeric_limits<double>::max(), 5}, grey, false},
    };
    for (const auto& picture : pictures)
        EXPECT_EQ(isMonochrome(picture.size, picture.bytes), picture.isMonochrome) << picture.what;
    EXPECT_FALSE(isMonochrome(nullptr));
}

} // namespace
} // namespace quorvane
