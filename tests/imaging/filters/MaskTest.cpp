#include "imaging/filters/Mask.h"

#include <gtest/gtest.h>

#include "imaging/filters/FilterPictures.h"
#include "imaging/filters/Reference.h"

namespace kestrio {
namespace {

TEST(Rasterise, CoverageIsTheAreaInsideThePath) {
    QPainterPath path;
    path.addRect(QRectF(-3.5, 2.25, 10, 5));
    const Mask mask = rasterise(path, QRect(-5, 1, 20, 10));
    EXPECT_EQ(mask.at({0, 4}), 255);
    EXPECT_NEAR(mask.at({-4, 4}), 127.5, 1);
    EXPECT_NEAR(mask.at({0, 2}), 0.75 * 255, 1);
    EXPECT_NEAR(mask.at({6, 7}), 0.125 * 255, 1);
    EXPECT_EQ(mask.at({0, 8}), 0);
    EXPECT_EQ(mask.at({-6, 4}), 0);
    EXPECT_TRUE(rasterise(path, QRect()).isEmpty());
}

TEST(Rasterise, FillRuleDecidesAboutOverlaps) {
    QPainterPath path;
    path.addRect(QRectF(0, 0, 10, 10));
    path.addRect(QRectF(2, 2, 6, 6));
    const QRect bounds(0, 0, 10, 10);
    EXPECT_EQ(rasterise(path, bounds, Qt::OddEvenFill).at({5, 5}), 0);
    EXPECT_EQ(rasterise(path, bounds, Qt::WindingFill).at({5, 5}), 255);
    path.setFillRule(Qt::WindingFill);
    EXPECT_EQ(rasterise(path, bounds).at({5, 5}), 255);
}

TEST(Rasterise, TallShapesHaveNoSeams) {
    constexpr int height = 40000;
    QPainterPath path;
    path.moveTo(0, 0);
    path.lineTo(100, 0);
    path.lineTo(0, height);
    path.closeSubpath();
    const Mask mask = rasterise(path, QRect(0, 0, 100, height));
    for (int y = 0; y < height; y += 13) {
        double area = 0;
        for (int x = 0; x < 100; ++x)
            area += mask.row(y)[x] / 255.0;
        ASSERT_NEAR(area, 100 - 100 * (y + 0.5) / height, 0.02) << y;
    }
}

TEST(CompositeColor, MixesAtFullPrecisionInsideTheClipOnly) {
    QPainterPath path;
    path.addEllipse(QRectF(3, 3, 40, 25));
    const Mask mask = rasterise(path, QRect(0, 0, 46, 31));
    const QColor color(200, 40, 90, 77);
    const QPoint offset(-9, 12);
    const QRect clip(5, 0, 100, 30);
    for (const QImage& before : {noise({50, 40}), screenshotPart({500, 150, 50, 40})}) {
        QImage drawn = before;
        compositeColor(drawn, mask, offset, color, clip);
        reference::Picture exact(before);
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 50; ++x) {
                if (!clip.contains(x, y)) continue;
                const double alpha = color.alphaF() * mask.at(QPoint(x, y) - offset) / 255.0;
                const double over[] = {90, 40, 200, 255};
                for (int c = 0; c < 4; ++c) {
                    exact.at(x, y, c) = over[c] * alpha + exact.at(x, y, c) * (1 - alpha);
                }
            }
        }
        EXPECT_LE(reference::largestDifference(reference::Picture(drawn), exact), 0.51);
        EXPECT_TRUE(isPremultiplied(drawn));
        EXPECT_TRUE(sameWithAnyThreads(
            before, [&](QImage& bitmap) { compositeColor(bitmap, mask, offset, color); }));
    }
}

}  // namespace
}  // namespace kestrio
