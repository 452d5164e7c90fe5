#include "annotation/painting/TextColumn.h"

#include "annotation/painting/AnnotationPainter.h"
#include "imaging/text/SystemFont.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

TEST(TextColumn, WrapsAtWordsAndBreaksWhatDoesNotFit) {
    const QString words = QStringLiteral("one two three four");
    const double line = TextColumn(QStringLiteral("x"), {.width = 100}).height();
    EXPECT_NEAR(TextColumn(words, {.width = 100}).height(), line, 1e-6);
    EXPECT_NEAR(TextColumn(words, {.width = 3.2}).height(), 4 * line, 1e-6);
    const QString tooLong = QStringLiteral("unbreakablylongword");
    const TextColumn broken(tooLong, {.width = 3});
    EXPECT_GE(broken.height(), 3 * line);
    EXPECT_LE(broken.naturalWidth(), 3.0);
    EXPECT_NEAR(TextColumn(QStringLiteral("a\n\nb"), {.width = 100}).height(), 3 * line, 1e-6);
}

struct AlignmentCase {
    const char* text;
    CodableTextAlignment alignment;
    double center;  // of the ink, as a share of the box's width
};

TEST(TextColumn, AlignsInTheDirectionOfTheText) {
    using enum CodableTextAlignment;
    const AlignmentCase cases[] = {
        {"abc", leading, 0.1},  {"abc", center, 0.5},  {"abc", trailing, 0.9},
        {"שלום", leading, 0.9}, {"שלום", center, 0.5}, {"שלום", trailing, 0.1},
    };
    for (const AlignmentCase& each : cases) {
        QImage picture(300, 40, QImage::Format_RGB32);
        picture.fill(Qt::white);
        const TextAnnotation text{{},
                                  {0, 0, 300, 40},
                                  QString::fromUtf8(each.text),
                                  {0, 0, 0, 1},
                                  24,
                                  CodableFontWeight::regular,
                                  std::nullopt,
                                  each.alignment};
        const AnyAnnotation any = text;
        paintAnnotations(picture, {&any, 1}, {});
        double weighted = 0, ink = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const int darkness = 255 - qGreen(picture.pixel(x, y));
                weighted += double(x) * darkness;
                ink += darkness;
            }
        }
        EXPECT_NEAR(weighted / ink / 300, each.center, 0.06) << each.text;
    }
}

TEST(TextColumn, HeavierWeightsLayDownMoreInk) {
    double previous = 0;
    for (int weight = 100; weight <= 900; weight += 100) {
        QImage picture(400, 60, QImage::Format_RGB32);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        TextColumn(QStringLiteral("Hamburg"), {.weight = QFont::Weight(weight), .width = 100})
            .paint(painter, {4, 4}, 40, Qt::black);
        double ink = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                ink += 255 - qGreen(picture.pixel(x, y));
        EXPECT_GT(ink, previous) << weight;
        previous = ink;
    }
}

// Scripts that a screenshot's notes may be in; a box instead of a letter is glyph 0.
TEST(TextColumn, HasGlyphsForTheWorldsScripts) {
    const char* const texts[] = {"Größe",  "Ελληνικά", "Кириллица",    "שלום",
                                 "مرحبا",  "हिन्दी",    "ไทย",          "中文",
                                 "日本語", "한국어",   "🎉👍🏽", "→ ✓ ©"};
    for (const char* text : texts) {
        QTextLayout layout(QString::fromUtf8(text), writingFont({}, 64, QFont::Normal));
        layout.beginLayout();
        layout.createLine();
        layout.endLayout();
        int glyphs = 0;
        for (const QGlyphRun& run : layout.glyphRuns()) {
            for (const quint32 glyph : run.glyphIndexes()) {
                EXPECT_NE(glyph, 0u) << text;
                ++glyphs;
            }
        }
        EXPECT_GT(glyphs, 0) << text;
    }
}

TEST(EmojiPainter, FillsItsSizeInColour) {
    QImage picture(200, 200, QImage::Format_RGB32);
    picture.fill(Qt::white);
    const AnyAnnotation emoji =
        EmojiAnnotation{{}, {100, 100}, QStringLiteral("😀"), 120, {0, 0, 0, 1}, 0, 0};
    paintAnnotations(picture, {&emoji, 1}, {});
    QRect ink;
    int yellow = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            if (pixel != 0xffffffff) ink |= QRect(x, y, 1, 1);
            yellow += qRed(pixel) > 200 && qBlue(pixel) < 120;
        }
    }
    EXPECT_NEAR(std::max(ink.width(), ink.height()), 120, 2);
    EXPECT_NEAR(ink.center().x(), 100, 2);
    EXPECT_NEAR(ink.center().y(), 100, 2);
    EXPECT_GT(yellow, 3000);
}

}  // namespace
}  // namespace kestrio
