#include "imaging/filters/Rotate.h"

#include <gtest/gtest.h>

#include "imaging/filters/FilterPictures.h"
#include "imaging/filters/Reference.h"

namespace kestrio {
namespace {

TEST(RotatedQuarterTurns, MovesEveryPixelClockwise) {
    for (const QSize size : {QSize(70, 45), QSize(1, 9), QSize(33, 1)}) {
        const QImage before = noise(size);
        const int width = size.width(), height = size.height();
        const QImage once = rotatedQuarterTurns(before, 1), twice = rotatedQuarterTurns(before, 2);
        const QImage back = rotatedQuarterTurns(before, -1);
        ASSERT_EQ(once.size(), size.transposed());
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const QRgb pixel = before.pixel(x, y);
                ASSERT_EQ(once.pixel(height - 1 - y, x), pixel);
                ASSERT_EQ(twice.pixel(width - 1 - x, height - 1 - y), pixel);
                ASSERT_EQ(back.pixel(y, width - 1 - x), pixel);
            }
        }
        QImage turned = before;
        for (int turn = 0; turn < 4; ++turn)
            turned = rotatedQuarterTurns(turned, 1);
        EXPECT_EQ(turned, before);
        EXPECT_EQ(rotatedQuarterTurns(before, 7), back);
        EXPECT_EQ(rotatedQuarterTurns(before, std::numeric_limits<int>::min()), before);
    }
    EXPECT_EQ(rotatedQuarterTurns(screenshotPart({0, 0, 4, 5}), 1).format(), QImage::Format_RGB32);
}

TEST(Rotated, AgreesWithTheReference) {
    for (const QImage& before :
         {noise({50, 31}), screenshotPart({500, 150, 50, 31}), noise({1, 1}), noise({2, 40})}) {
        for (double degrees : {0.0, 7.0, 45.0, 90.0, -133.3, 540.0}) {
            for (const QSize canvas : {QSize(63, 60), QSize(20, 9)}) {
                const QImage turned = rotated(before, degrees, canvas);
                ASSERT_EQ(turned.size(), canvas);
                const reference::Picture exact =
                    reference::rotated(reference::Picture(before), degrees, canvas);
                // Half a level for rounding, half a level for places between pixels, which are
                // rounded to 1/1024 of a pixel.
                EXPECT_LE(reference::largestDifference(reference::Picture(turned), exact), 1.0)
                    << degrees << " " << before.width();
                EXPECT_TRUE(isPremultiplied(turned));
            }
        }
    }
}

TEST(Rotated, WholeTurnsOnAFittingCanvasChangeNothing) {
    const QImage before = noise({41, 30});
    EXPECT_EQ(rotated(before, 0, before.size()), before);
    EXPECT_EQ(rotated(before, -720, before.size()), before);
    EXPECT_EQ(rotated(before, 90, before.size().transposed()), rotatedQuarterTurns(before, 1));
    EXPECT_TRUE(rotated(before, 10, QSize()).isNull());
    EXPECT_EQ(rotated(QImage(), 10, {3, 3}).pixel(1, 1), 0u);
    EXPECT_TRUE(sameWithAnyThreads(before, [](QImage& bitmap) {
        bitmap = rotated(bitmap, 33, {200, 300});
    }));
}

}  // namespace
}  // namespace kestrio
