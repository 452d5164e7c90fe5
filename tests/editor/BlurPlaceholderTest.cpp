#include "editor/canvas/BlurPlaceholder.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

QImage painted(BlurType type, double intensity, const QColor& ground) {
    QImage picture(80, 60, QImage::Format_RGB32);
    picture.fill(ground);
    BlurAnnotation blur;
    blur.blurType = type;
    blur.intensity = intensity;
    QPainter painter(&picture);
    paintBlurPlaceholder(painter, blur, {10, 10, 60, 40});
    return picture;
}

/// The shortest run of one colour along a row within the rectangle.
int shortestRun(const QImage& picture, int y) {
    int shortest = picture.width(), run = 0;
    bool isWhole = false;
    for (int x = 11; x < 70; ++x) {
        ++run;
        if (picture.pixel(x, y) == picture.pixel(x - 1, y)) continue;
        if (isWhole) shortest = std::min(shortest, run);
        isWhole = true;
        run = 0;
    }
    return shortest;
}

TEST(BlurPlaceholder, StaysWithinItsRectangle) {
    for (const auto& row : blurTypes) {
        const QImage picture = painted(row.value, 0.5, Qt::red);
        for (int y = 0; y < 60; ++y)
            for (int x = 0; x < 80; ++x)
                EXPECT_EQ(picture.pixelColor(x, y) != QColor(Qt::red),
                          QRect(10, 10, 60, 40).contains(x, y))
                    << row.raw << ' ' << x << ' ' << y;
    }
}

TEST(BlurPlaceholder, HintsAtKindAndStrength) {
    EXPECT_NEAR(painted(BlurType::solid, 0, Qt::white).pixelColor(40, 30).red(), 76, 2);
    EXPECT_NEAR(painted(BlurType::solid, 1, Qt::white).pixelColor(40, 30).red(), 0, 1);
    EXPECT_NEAR(painted(BlurType::solid, NAN, Qt::white).pixelColor(40, 30).red(), 76, 2);
    EXPECT_EQ(shortestRun(painted(BlurType::pixelate, 0, Qt::white), 31), 2);
    EXPECT_EQ(shortestRun(painted(BlurType::pixelate, 1, Qt::white), 31), 10);
    EXPECT_GT(painted(BlurType::gaussian, 0.5, Qt::black).pixelColor(40, 30).red(), 120);
}

}  // namespace
}  // namespace kestrio
