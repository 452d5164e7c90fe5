#include "text/recognition/OCRResult.h"

#include <gtest/gtest.h>
#include "support/ScriptedTextRecognizer.h"

namespace kestrio {
namespace {

TEST(OCRResult, FractionsCountFromTheBottomLeftAndBack) {
    const QSize size(200, 100);
    const QRectF pixels(20, 10, 60, 20);
    const QRectF fractions = normalizedFromPixels(pixels, size);
    EXPECT_EQ(fractions, QRectF(0.1, 0.7, 0.3, 0.2));
    const QRectF back = pixelsFromNormalized(fractions, size);
    EXPECT_NEAR(back.left(), pixels.left(), 1e-9);
    EXPECT_NEAR(back.top(), pixels.top(), 1e-9);
    EXPECT_NEAR(back.right(), pixels.right(), 1e-9);
    EXPECT_NEAR(back.bottom(), pixels.bottom(), 1e-9);
}

TEST(OCRResult, ARangeOfALineCoversItsCharactersOnly) {
    const RecognizedLine line = evenLine(QStringLiteral("key: abc"), QRectF(10, 20, 80, 12));
    EXPECT_EQ(line.rectOf(5, 3), QRectF(60, 20, 30, 12));
    EXPECT_EQ(line.rectOf(5, 100), QRectF(60, 20, 30, 12));
    EXPECT_TRUE(line.rectOf(2, 0).isEmpty());
    RecognizedLine coarse = line;
    coarse.characters.clear();
    EXPECT_EQ(coarse.rectOf(5, 3), coarse.rect);
}

}  // namespace
}  // namespace kestrio
