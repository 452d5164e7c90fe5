#include "imaging/filters/GaussianBlur.h"

#include <gtest/gtest.h>

#include "imaging/filters/FilterPictures.h"
#include "imaging/filters/Reference.h"

namespace kestrio {
namespace {

// From direct convolution over every change of the shrinking step up to kernels wider than the
// picture.
constexpr double sigmas[] = {0.3, 1, 2.4, 4.9, 5, 7.3, 9.99, 10, 19, 20, 33, 47, 60, 90, 400};

TEST(GaussianBlur, StaysNearTheExactGaussian) {
    for (const QSize size : {QSize(131, 97), QSize(1, 60), QSize(33, 1), QSize(1, 1)}) {
        for (const NamedPicture& picture : filterPictures(size)) {
            for (double sigma : sigmas) {
                QImage blurred = picture.bitmap;
                gaussianBlur(blurred, sigma);
                const reference::Picture exact = reference::gaussianBlur(
                    reference::Picture(picture.bitmap), sigma, reference::Outside::edge);
                EXPECT_LE(reference::largestDifference(reference::Picture(blurred), exact), 1.0)
                    << picture.name << " " << size.width() << " sigma " << sigma;
                EXPECT_TRUE(isPremultiplied(blurred)) << picture.name << " sigma " << sigma;
                EXPECT_EQ(blurred.format(), picture.bitmap.format());
            }
        }
    }
}

TEST(GaussianBlur, MasksFadeIntoNothing) {
    for (const QRect bounds : {QRect(-20, 7, 131, 90), QRect(0, 0, 1, 40), QRect(3, 3, 1, 1)}) {
        Mask mask(bounds);
        for (int y = bounds.top(); y <= bounds.bottom(); ++y) {
            for (int x = 0; x < bounds.width(); ++x) {
                mask.row(y)[x] = x * 7 / 20 % 3 == 1 ? 40 : 255;
            }
        }
        for (double sigma : sigmas) {
            Mask blurred = mask;
            gaussianBlur(blurred, sigma);
            const reference::Picture exact =
                reference::gaussianBlur(reference::Picture(mask), sigma, reference::Outside::zero);
            EXPECT_EQ(blurred.bounds(), bounds);
            EXPECT_LE(reference::largestDifference(reference::Picture(blurred), exact), 1.0)
                << bounds.width() << " sigma " << sigma;
        }
    }
}

// Every level and every step: a flat picture is the sum of all of a kernel's rounding.
TEST(GaussianBlur, FlatPicturesStayExactlyFlat) {
    QImage flat(37, 41, QImage::Format_ARGB32_Premultiplied);
    for (double sigma : {0.3, 2.0, 4.9, 6.0, 20.0, 75.0, 160.0, 1000.0, 3e4, 1e9}) {
        for (unsigned level = 0; level < 256; ++level) {
            flat.fill(0xff000000u | level << 16 | (255 - level) << 8 | level / 2);
            QImage blurred = flat;
            gaussianBlur(blurred, sigma);
            ASSERT_EQ(blurred, flat) << level << " sigma " << sigma;
        }
    }
}

TEST(GaussianBlur, ZeroNegativeAndUndefinedSigmasChangeNothing) {
    const QImage before = noise({9, 9});
    for (double sigma : {0.0, -3.0, std::nan("")}) {
        QImage bitmap = before;
        gaussianBlur(bitmap, sigma);
        EXPECT_EQ(bitmap, before);
    }
    QImage null;
    gaussianBlur(null, 5);
    EXPECT_TRUE(null.isNull());
}

TEST(GaussianBlur, SharedAndOwnedPixelsGiveTheSame) {
    const QImage before = noise({90, 70});
    for (double sigma : {2.0, 12.0}) {
        QImage shared = before, owned = before.copy();
        gaussianBlur(shared, sigma);
        gaussianBlur(owned, sigma);
        EXPECT_EQ(shared, owned);
        EXPECT_EQ(before, noise({90, 70}));
    }
}

TEST(GaussianBlur, ThreadsDoNotShowInTheResult) {
    for (double sigma : {2.0, 6.0, 20.0, 100.0}) {
        EXPECT_TRUE(sameWithAnyThreads(noise({301, 403}), [&](QImage& bitmap) {
            gaussianBlur(bitmap, sigma);
        })) << sigma;
    }
}

}  // namespace
}  // namespace kestrio
