#include "imaging/filters/ColorAdjust.h"

#include <gtest/gtest.h>

#include "imaging/filters/FilterPictures.h"
#include "imaging/filters/Reference.h"

namespace kestrio {
namespace {

TEST(AdjustSaturation, AgreesWithTheReference) {
    for (const QSize size : {QSize(67, 35), QSize(1, 1)}) {
        for (const QImage& before : {noise(size), screenshotPart({{500, 150}, size})}) {
            for (double factor : {0.0, 0.35, 1.0, 1.8, 2.0, 9.0}) {
                QImage adjusted = before;
                adjustSaturation(adjusted, factor);
                const reference::Picture exact =
                    reference::adjustSaturation(reference::Picture(before), factor);
                EXPECT_LE(reference::largestDifference(reference::Picture(adjusted), exact), 0.51)
                    << factor;
                EXPECT_TRUE(isPremultiplied(adjusted));
            }
        }
    }
}

TEST(AdjustSaturation, GreyPicturesAndOddFactorsAreSafe) {
    QImage grey(40, 3, QImage::Format_RGB32);
    grey.fill(0xff777777u);
    for (double factor : {-1.0, 2.0, 1e300, std::nan("")}) {
        QImage adjusted = grey;
        adjustSaturation(adjusted, factor);
        EXPECT_EQ(adjusted, grey) << factor;
    }
    EXPECT_TRUE(sameWithAnyThreads(noise({201, 203}),
                                   [](QImage& bitmap) { adjustSaturation(bitmap, 1.4); }));
}

}  // namespace
}  // namespace kestrio
