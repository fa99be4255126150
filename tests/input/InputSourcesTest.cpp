#include <limits>

#include <gtest/gtest.h>

#include "input/IconLoading.h"
#include "input/InputSourceCatalogue.h"
#include "input/MonochromeTest.h"
#include "platform/TemplateShape.h"
#include "support/ProgramTest.h"

namespace quorvane {
namespace {

using Bytes = std::vector<std::uint8_t>;

class InputSources : public ProgramTest {};

TEST_F(InputSources, TheIconIsTheReferenceElseThePictureElseTheTiffBesideIt) {
    const auto icon = SimulatedImage::ofColor({16, 16}, 1, 2, 3);
    desktop_.inputSources.icons["drawn"] = icon;
    for (const auto* url : {"file:///a/icon.png", "file:///b/icon.tiff", "file:///c.d/icon.tiff"})
        desktop_.images.byURL[url] = icon;
    const struct {
        InputSource source;
        bool loads;
        Lines looksFor;
    } cases[] = {
        {{.id = "drawn", .hasIconReference = true}, true, {}},
        {{.id = "undrawable", .hasIconReference = true, .iconImageURL = "file:///a/icon.png"}, false, {}},
        {{.id = "s", .iconImageURL = "file:///a/icon.png"}, true, {"0 load file:///a/icon.png"}},
        {{.id = "s", .iconImageURL = "file:///b/icon.pdf?page=1.2#top"},
         true,
         {"0 load file:///b/icon.pdf?page=1.2#top; load file:///b/icon.tiff"}},
        {{.id = "s", .iconImageURL = "file://host/c.d/icon"},
         true,
         {"0 load file://host/c.d/icon; load file:///c.d/icon.tiff"}},
        {{.id = "s", .iconImageURL = "file:///b/.icon"},
         false,
         {"0 load file:///b/.icon; load file:///b/.icon.tiff"}},
        {{.id = "s", .iconImageURL = "icon.gone.png"},
         false,
         {"0 load icon.gone.png; load file://icon.gone.tiff"}},
        {{.id = "s", .iconImageURL = "file://host"}, false, {"0 load file://host; load file://.tiff"}},
        {{.id = "s"}, false, {}},
    };
    desktop_.journal.take();
    for (const auto& [source, loads, looksFor] : cases) {
        EXPECT_EQ(loadIcon(source, desktop_.inputSources, desktop_.images) != nullptr, loads);
        EXPECT_EQ(desktop_.journal.take(), looksFor);
    }
}

TEST_F(InputSources, TheCatalogueHoldsSelectableKeyboardSourcesOnly) {
    auto& sources = desktop_.inputSources;
    for (const auto* id : {"us", "ru", "de"})
        sources.disable(id);
    sources.enable({.id = "palette", .category = InputSourceCategory::other});
    sources.enable({.id = "no icon"});
    sources.enable({.id = "parent", .isSelectCapable = false});
    sources.enable({.id = "ru", .hasIconReference = true});
    sources.names["ru"] = "Русская";
    desktop_.journal.take();

    const auto catalogue = InputSourceCatalogue::build(sources, desktop_.images);
    EXPECT_EQ(desktop_.journal.take(), Lines{"0 list all"});
    EXPECT_EQ(catalogue.arrOfInputInfo,
              (std::vector{InputSourceInfo{"no icon", "no icon"}, InputSourceInfo{"ru", "Русская"}}));
    EXPECT_EQ(catalogue.arrOfInputName, (Lines{"-", "no icon", "Русская"}));
    EXPECT_EQ(catalogue.iconAt(0), sources.icons["ru"]) << "a missing icon leaves no gap";
    EXPECT_EQ(catalogue.iconAt(1), nullptr);
    EXPECT_EQ(catalogue.nameOfInput("ru"), "Русская");
    EXPECT_EQ(catalogue.nameOfInput("gone"), std::nullopt);
}

TEST(MonochromeTest, TellsIconsOfOneColourFromColouredOnes) {
    const Bytes grey{9, 9, 9, 255};
    const struct {
        const char* what;
        Size size;
        Bytes bytes;
        bool isMonochrome;
    } pictures[] = {
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

TEST(TemplateShape, IsOneGreyOnAClearGround) {
    const std::tuple<const char*, Bytes, bool> pictures[] = {
        {"black letter on a clear ground", {0, 0, 0, 255, 0, 0, 0, 90, 0, 0, 0, 0}, true},
        {"white, half transparent at its edge", {255, 255, 255, 255, 140, 140, 140, 140, 0, 0, 0, 0}, true},
        {"nearly black", {30, 28, 31, 255, 0, 0, 0, 0}, true},
        {"two greys", {30, 30, 30, 255, 90, 90, 90, 255, 0, 0, 0, 0}, false},
        {"white letter on black", {255, 255, 255, 255, 0, 0, 0, 255}, false},
        {"black ground, clear letter and a red mark", {0, 0, 0, 255, 0, 0, 0, 0, 200, 0, 0, 255}, false},
        {"dark red, half transparent", {70, 0, 0, 140, 0, 0, 0, 0}, false},
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
