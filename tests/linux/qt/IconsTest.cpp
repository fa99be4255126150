// Icons of layouts and input methods.

#include <QBitmap>
#include <QIcon>
#include <QPainter>
#include <QRegion>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "input/MonochromeTest.h"
#include "platform/linux/input-methods/InputMethodIcons.h"
#include "platform/linux/qt/IndicatorPicture.h"
#include "platform/linux/qt/LettersIcon.h"
#include "platform/linux/qt/QtImage.h"
#include "platform/linux/qt/ReferencedIcon.h"

namespace quorvane {
namespace {

QRect inkOf(const QImage& image) {
    return QRegion(QBitmap::fromImage(image.createAlphaMask(Qt::ThresholdDither))).boundingRect();
}

TEST(LettersIcon, IsWholeAndInTheMiddleAtEveryScale) {
    for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        for (const auto* letters : {"RU", "WM", "zhA", "a long label", "五笔", "拼", "한", "あ", "中", "W"}) {
            SCOPED_TRACE(testing::Message() << letters << " at " << scale);
            const auto icon = imageOfLetters(letters, scale);
            const auto side = static_cast<int>(std::lround(18 * scale));
            ASSERT_EQ(icon.size(), QSize(side, side));
            const auto ink = inkOf(icon), whole = icon.rect();
            EXPECT_TRUE(whole.marginsRemoved({1, 1, 1, 1}).contains(ink)) << "nothing is cut off";
            EXPECT_GE(ink.width(), side * 2 / 3);
            const auto off = ink.topLeft() - (whole.bottomRight() - ink.bottomRight());
            EXPECT_LE(std::abs(off.x()), 2);
            EXPECT_LE(std::abs(off.y()), QString(letters).size() == 1 ? 2 : side);
        }
    }
    EXPECT_EQ(inkOf(imageOfLetters("JE", 2)).top(), inkOf(imageOfLetters("DE", 2)).top()) << "one line";
    EXPECT_FALSE(drawLettersIcon(" "));
    EXPECT_FALSE(drawLettersIcon("\U0010FFFD")) << "no font has it";

    const auto image = QtImage::make(imageOfLetters("RU", 1.25));
    EXPECT_EQ(QtImage::unwrapped(image->redrawn({18, 18})), QtImage::unwrapped(image));
}

TEST(ReferencedIcon, HasOneSizeAndNoGreyMadeForOneGround) {
    QIcon::setThemeSearchPaths({"/usr/share/icons"});
    const QTemporaryDir folder;
    const auto file = [&](const char* name, const QColor& ground, const QColor& colour) {
        QImage picture(64, 64, QImage::Format_ARGB32);
        picture.fill(ground);
        QPainter(&picture).fillRect(16, 16, 32, 32, colour);
        picture.save(folder.filePath(name));
        return folder.filePath(name).toStdString();
    };
    const QColor none(Qt::transparent), orange(255, 128, 0);
    const std::pair<std::string, bool> icons[] = {{"fcitx-pinyin", false}, // 16, 22, 24 and 48 wide
                                                  {"ibus-hangul", false},
                                                  {"/usr/share/ibus-libpinyin/icons/ibus-pinyin.svg", false},
                                                  {file("white.png", none, Qt::white), true},
                                                  {file("slate.png", none, QColor(46, 52, 54)), true},
                                                  {file("orange.png", none, orange), false},
                                                  {file("tile.png", Qt::black, Qt::white), false},
                                                  {file("some-symbolic.png", none, orange), true}};
    for (const auto& [reference, monochrome] : icons) {
        const auto icon = referencedIcon(reference);
        ASSERT_TRUE(icon) << reference;
        EXPECT_EQ(icon->size(), (Size{18, 18})) << reference;
        EXPECT_EQ(isMonochrome(icon), monochrome) << reference;
    }
    EXPECT_FALSE(referencedIcon("no-such-icon"));
}

TEST(IndicatorPicture, HasShapesInTheColourThatIsSeenOnTheBox) {
    QImage slate(18, 18, QImage::Format_ARGB32_Premultiplied), orange = slate;
    slate.fill(Qt::transparent);
    orange.fill(QColor(255, 128, 0));
    QPainter(&slate).fillRect(6, 6, 6, 6, QColor(46, 52, 54));
    const std::tuple<QImage, IndicatorBox, int> cases[] = {
        {slate, IndicatorBox::light, 0},    {slate, IndicatorBox::dark, 241},
        {slate, IndicatorBox::none, 50},    {orange, IndicatorBox::dark, 127},
        {QImage(), IndicatorBox::dark, 63}, {QImage(), IndicatorBox::light, 245}};
    for (const auto& [icon, box, lightness] : cases)
        EXPECT_NEAR(drawIndicator(icon, box, Qt::transparent, 1).pixelColor(10, 10).lightness(), lightness,
                    3);
}

TEST(InputMethodIcons, ArePicturesElseSymbolsElseTheLettersOfTheLanguage) {
    std::string tried;
    const auto attempt = [&](const std::string& what) {
        tried += what + " ";
        return nullptr;
    };
    const InputMethodIcons icons{attempt, attempt};
    for (const InputMethodIcon& described : {InputMethodIcon{"/gone.svg", "한", "ko"},
                                             {"ibus-keyboard", "", "fr"},
                                             {"input-keyboard-symbolic", "", "deu"},
                                             {"", "", ""}})
        EXPECT_FALSE(icons.iconOf(described));
    EXPECT_EQ(tried, "/gone.svg 한 KO FR DE ");
}

} // namespace
} // namespace quorvane
