#include "imaging/filters/GaussianBlur.h"

#include <gtest/gtest.h>

#include "imaging/filters/FilterPictures.h"

namespace kestrio {
namespace {

// Direct convolution, every shrinking step of interest on both sides of its limits, and kernels
// that reach beyond the picture.
constexpr double sigmas[] = {0.4, 3, 4.99, 5, 7.3, 10, 17.5, 20, 35, 40, 60, 80, 500, 1e5};

struct Place {
    const char* name;
    std::vector<QRect> rects;
};

std::vector<Place> places(QSize size) {
    std::vector<QRect> many;
    for (int i = 0; i < 300; ++i)
        many.emplace_back(i * 37 % size.width(), i * 53 % size.height(), 1 + i % 23, 1 + i % 9);
    return {
        {"one pixel", {QRect(size.width() / 2, size.height() / 2, 1, 1)}},
        {"corners", {QRect(-9, -9, 14, 12), QRect(size.width() - 3, size.height() - 2, 90, 90)}},
        {"overlapping", {QRect(20, 30, 80, 50), QRect(60, 50, 90, 41), QRect(20, 30, 80, 50)}},
        {"touching", {QRect(31, 10, 33, 60), QRect(64, 10, 64, 60), QRect(31, 70, 97, 5)}},
        {"a column and a row", {QRect(70, 0, 1, 9999), QRect(0, 41, 9999, 1)}},
        {"everything", {QRect(QPoint(), size)}},
        {"many", many}};
}

/// `inside` within the rectangles, `outside` elsewhere.
QImage patched(QImage outside, const QImage& inside, const std::vector<QRect>& rects) {
    for (const QRect& wide : rects) {
        const QRect rect = wide & outside.rect();
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            std::memcpy(outside.scanLine(y) + rect.left() * 4,
                        inside.constScanLine(y) + rect.left() * 4, rect.width() * 4);
        }
    }
    return outside;
}

// Also shows that no rectangle sees another one's result, and that nothing outside changes.
TEST(RegionBlur, IsTheWholeBlurInsideAndNothingOutside) {
    for (const QSize size : {QSize(211, 173), QSize(640, 331), QSize(1, 90)}) {
        const QImage before = noise(size);
        for (double sigma : sigmas) {
            QImage whole = before;
            gaussianBlur(whole, sigma);
            for (const Place& place : places(size)) {
                QImage blurred = before;
                gaussianBlur(blurred, sigma, PixelRegion(place.rects, before.rect()));
                EXPECT_EQ(blurred, patched(before, whole, place.rects))
                    << place.name << " sigma " << sigma << " width " << size.width();
            }
        }
        EXPECT_EQ(before, noise(size));
    }
}

TEST(RegionBlur, NothingToDoLeavesTheVeryBitmap) {
    QImage bitmap = noise({30, 20});
    const QImage before = bitmap;
    gaussianBlur(bitmap, 9, PixelRegion());
    gaussianBlur(bitmap, 9, PixelRegion({QRect(40, 40, 5, 5)}, QRect(0, 0, 100, 100)));
    for (double sigma : {0.0, -1.0, std::nan("")})
        gaussianBlur(bitmap, sigma, PixelRegion({bitmap.rect()}, bitmap.rect()));
    EXPECT_EQ(bitmap.cacheKey(), before.cacheKey());
}

TEST(RegionBlur, ThreadsDoNotShowInTheResult) {
    const QSize size(501, 702);
    for (double sigma : {3.0, 8.0, 35.0}) {
        const PixelRegion region(places(size).back().rects, QRect(QPoint(), size));
        EXPECT_TRUE(sameWithAnyThreads(noise(size), [&](QImage& bitmap) {
            gaussianBlur(bitmap, sigma, region);
        })) << sigma;
    }
}

}  // namespace
}  // namespace kestrio
