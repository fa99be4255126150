#include "platform/linux/qt/LettersIcon.h"

#include <algorithm>
#include <cmath>

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QGuiApplication>
#include <QPainter>
#include <QRawFont>
#include <QTextBoundaryFinder>
#include <QTextLayout>

#include "platform/linux/qt/QtImage.h"

namespace quorvane {
namespace {

// All in points.
constexpr int letteredIconSize = 18;
constexpr int letterMargin = 1;
constexpr int fontSize = 11;      // of letters side by side
constexpr int fontSizeOfOne = 15; // of a single sign, which may have more strokes than three letters

constexpr int mostLetters = 3;  // more could not be read
constexpr int longestText = 32; // accents included

struct Letters {
    QString text;
    int count = 0;
};

/// As the user counts them: an accent is no letter.
Letters lettersOf(const QString& text) {
    Letters letters{text.trimmed().left(longestText)};
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, letters.text);
    while (letters.count < mostLetters && finder.toNextBoundary() > 0)
        ++letters.count;
    if (finder.position() > 0) letters.text.truncate(finder.position());
    return letters;
}

/// Letters as they come out in one size, on pixels of their own.
struct Drawn {
    QImage image;
    QRect ink;         ///< Where there is something; empty when there is nothing.
    int baseline = 0;  ///< Pixels from the top.
    int capHeight = 0; ///< Pixels.

    int longestSide() const { return std::max(ink.width(), ink.height()); }
};

QRect inkOf(const QImage& alpha) {
    QRect ink;
    for (int y = 0; y < alpha.height(); ++y) {
        const auto* line = alpha.constScanLine(y);
        for (int x = 0; x < alpha.width(); ++x)
            if (line[x] > 0) ink |= QRect(x, y, 1, 1);
    }
    return ink;
}

/// Whether no letter is one of the empty boxes that stand for what fonts do not have.
bool hasAllGlyphs(const QTextLayout& layout) {
    const auto runs = layout.glyphRuns();
    return !runs.empty() && std::ranges::all_of(runs, [](const QGlyphRun& run) {
        const bool hasFont = run.rawFont().pixelSize() > 0; // Else even the boxes are nobody's.
        return hasFont && !run.glyphIndexes().contains(0);
    });
}

/// Nothing when no font has them.
Drawn draw(const QString& text, int pixelSize) {
    QFont font;
    font.setPixelSize(pixelSize);
    font.setBold(true);
    QTextLayout layout(text, font);
    layout.beginLayout();
    const auto line = layout.createLine();
    layout.endLayout();
    if (!line.isValid() || !hasAllGlyphs(layout)) return {};

    Drawn drawn;
    drawn.capHeight = static_cast<int>(std::lround(QFontMetricsF(font).capHeight()));
    drawn.baseline = 2 * pixelSize; // Some fonts' letters are higher, and wider, than they say.
    drawn.image = QImage(static_cast<int>(std::ceil(line.naturalTextWidth())) + 2 * pixelSize, 3 * pixelSize,
                         QImage::Format_ARGB32_Premultiplied);
    drawn.image.fill(Qt::transparent);
    QPainter painter(&drawn.image);
    painter.setPen(Qt::black);
    layout.draw(&painter, QPointF(pixelSize, drawn.baseline - line.ascent()));
    painter.end();
    drawn.ink = inkOf(drawn.image.convertToFormat(QImage::Format_Alpha8));
    return drawn;
}

/// How far from the top the ink has to begin. A single sign is in the middle; of letters the capitals are, so
/// that all icons have the same baseline, whether or not one of their letters goes below it.
int topOf(const Drawn& drawn, int count, int side) {
    const auto centred = (side - drawn.ink.height()) / 2;
    if (count == 1) return centred;
    const auto top = (side + drawn.capHeight) / 2 - drawn.baseline + drawn.ink.top();
    return std::clamp(top, std::min(0, centred), std::max(0, side - drawn.ink.height()));
}

} // namespace

QImage imageOfLetters(const QString& text, double pixelsPerPoint) {
    const auto letters = lettersOf(text);
    const auto pixels = [pixelsPerPoint](int points) {
        return std::max(1, static_cast<int>(std::lround(points * pixelsPerPoint)));
    };
    const auto side = pixels(letteredIconSize);
    const auto room = side - 2 * pixels(letterMargin);

    auto size = pixels(letters.count == 1 ? fontSizeOfOne : fontSize);
    auto drawn = draw(letters.text, size);
    while (size > 1 && drawn.longestSide() > room) {
        size = std::min(size - 1, size * room / drawn.longestSide());
        drawn = draw(letters.text, size);
    }
    if (drawn.ink.isEmpty()) return {};

    QImage icon(side, side, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    // Pixel by pixel, as the font's hints have put them.
    painter.drawImage(QPoint((side - drawn.ink.width()) / 2, topOf(drawn, letters.count, side)), drawn.image,
                      drawn.ink);
    painter.end();
    icon.setDevicePixelRatio(pixelsPerPoint);
    return icon;
}

ImageRef drawLettersIcon(const std::string& letters) {
    return QtImage::make(imageOfLetters(QString::fromStdString(letters), qGuiApp->devicePixelRatio()));
}

} // namespace quorvane
