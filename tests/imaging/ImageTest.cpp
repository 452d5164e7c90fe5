#include "imaging/Image.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

TEST(Image, PixelDensityIsTheLargerAxisAndNeverBelowOne) {
    struct Row {
        QSize pixels;
        QSizeF points;
        double density;
    };
    const Row rows[] = {
        {{200, 100}, {100, 50}, 2.0},   {{200, 100}, {100, 25}, 4.0}, {{50, 50}, {100, 100}, 1.0},
        {{30, 30}, {0.25, 0.25}, 30.0}, {{10, 10}, {0, 0}, 10.0},
    };
    for (const Row& row : rows) {
        const Image image(QImage(row.pixels, QImage::Format_RGB32), row.points);
        EXPECT_DOUBLE_EQ(image.pixelDensity(), row.density) << row.points.width();
    }
    EXPECT_DOUBLE_EQ(Image().pixelDensity(), 1.0);
}

TEST(Image, OtherFormatsAreConverted) {
    QImage gray(4, 4, QImage::Format_Grayscale8);
    gray.fill(100);
    EXPECT_EQ(Image(gray).bitmap().pixel(1, 1), qRgb(100, 100, 100));
    EXPECT_TRUE(Image(gray).isOpaque());
    QImage straight(1, 1, QImage::Format_ARGB32);
    straight.setPixel(0, 0, qRgba(255, 255, 255, 128));
    const Image image(straight);
    EXPECT_FALSE(image.isOpaque());
    EXPECT_EQ(image.bitmap().format(), QImage::Format_ARGB32_Premultiplied);
}

}  // namespace
}  // namespace kestrio
