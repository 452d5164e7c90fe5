#include "imaging/filters/GrayCopy.h"

#include <gtest/gtest.h>

#include <cmath>

#include "imaging/filters/FrameSimilarity.h"
#include "support/NoisePicture.h"

namespace kestrio {
namespace {

double brightness(QRgb pixel) {
    return 0.299 * qRed(pixel) + 0.587 * qGreen(pixel) + 0.114 * qBlue(pixel);
}

// The share of [at, at + 1) that lies in [from, to).
double covered(int at, double from, double to) {
    return std::max(0.0, std::min(at + 1.0, to) - std::max(double(at), from));
}

double meanOf(const QImage& picture, QRectF area) {
    double sum = 0, weight = 0;
    for (int y = 0; y < picture.height(); ++y) {
        const double rows = covered(y, area.top(), area.bottom());
        if (rows == 0) continue;
        for (int x = 0; x < picture.width(); ++x) {
            const double share = rows * covered(x, area.left(), area.right());
            sum += share * brightness(picture.pixel(x, y));
            weight += share;
        }
    }
    return sum / weight;
}

TEST(GrayCopyTest, IsTheMeanOfWhatEachPixelCovers) {
    const QImage picture = noisePicture(QSize(211, 173), QImage::Format_RGB32);
    const QRect part(7, 5, 199, 160);
    for (const QSize size :
         {QSize(199, 160), QSize(64, 64), QSize(83, 67), QSize(1, 1), QSize(300, 161)}) {
        const GrayPixels copy = grayCopy(picture, part, size);
        ASSERT_EQ(copy.bytes.size(), std::size_t(size.width()) * size.height());
        const double width = double(part.width()) / size.width();
        const double height = double(part.height()) / size.height();
        for (int y = 0; y < size.height(); y += 3) {
            for (int x = 0; x < size.width(); x += 3) {
                const QRectF area(part.x() + x * width, part.y() + y * height, width, height);
                ASSERT_NEAR(copy.row(y)[x], meanOf(picture, area), 1.6)
                    << size.width() << " at " << x << ", " << y;
            }
        }
    }
    EXPECT_TRUE(grayCopy(picture, QRect(200, 0, 20, 20), QSize(5, 5)).bytes.empty());
    EXPECT_TRUE(grayCopy(picture, picture.rect(), QSize(0, 5)).bytes.empty());
    EXPECT_TRUE(grayCopy({}, QRect(), QSize(5, 5)).bytes.empty());
}

TEST(FrameSimilarityTest, FallsWithTheMeanDifference) {
    QImage white(200, 100, QImage::Format_RGB32);
    white.fill(Qt::white);
    QImage half = white;
    for (int y = 0; y < 50; ++y)
        std::fill_n(reinterpret_cast<QRgb*>(half.scanLine(y)), 200, qRgb(0, 0, 0));
    EXPECT_DOUBLE_EQ(frameSimilarity(white, white), 1);
    EXPECT_NEAR(frameSimilarity(white, half), 0.5, 0.01);
    EXPECT_DOUBLE_EQ(frameSimilarity(white, white.copy(0, 0, 200, 99)), 0);
    EXPECT_DOUBLE_EQ(frameSimilarity(QImage(), QImage()), 0);
}

}  // namespace
}  // namespace kestrio
