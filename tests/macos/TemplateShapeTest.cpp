#include <vector>

#include <gtest/gtest.h>

#include "platform/macos/shell/TemplateShape.h"

namespace quorvane {
namespace {

TEST(TemplateShape, IsBlackOnAClearGround) {
    using Pixels = std::vector<std::uint8_t>;
    const std::tuple<const char*, Pixels, bool> pictures[] = {
        {"black letter on a clear ground", {0, 0, 0, 255, 0, 0, 0, 90, 0, 0, 0, 0}, true},
        {"nearly black", {30, 28, 31, 255, 0, 0, 0, 0}, true},
        {"white letter on black", {255, 255, 255, 255, 0, 0, 0, 255}, false},
        {"black ground, clear letter and a red mark", {0, 0, 0, 255, 0, 0, 0, 0, 200, 0, 0, 255}, false},
        {"a flag", {200, 30, 40, 255, 255, 255, 255, 255}, false},
        {"all black", {0, 0, 0, 255, 0, 0, 0, 255}, false},
        {"all clear", {0, 0, 0, 0, 0, 0, 0, 0}, false},
        {"nothing", {}, false},
        {"half a pixel more", {0, 0, 0, 255, 0, 0, 0, 0, 255, 255}, true},
    };
    for (const auto& [name, pixels, isShape] : pictures)
        EXPECT_EQ(isTemplateShape(pixels), isShape) << name;
}

} // namespace
} // namespace quorvane
