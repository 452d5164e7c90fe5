#include "scrolling/stitch/Segment.h"

#include <gtest/gtest.h>

#include "scrolling/stitch/LongImage.h"
#include "scrolling/stitch/SeamSearch.h"
#include "support/NoisePicture.h"

namespace kestrio {
namespace {

QImage rowsOf(const SegmentList& list) {
    return composeLongImage({list.segments(), nullptr, 50, 1 << 30});
}

class SegmentListTest : public testing::TestWithParam<SegmentCompression> {};

TEST_P(SegmentListTest, TrimsFromTheEndAcrossSegments) {
    const QImage picture = noisePicture(QSize(50, 100), QImage::Format_RGB32);
    for (const int trim : {0, 1, 9, 10, 11, 40, 65, 99}) {
        SegmentList list(GetParam());
        int y = 0;
        for (const int height : {60, 30, 10}) {
            list.append(*makeSegment(picture, y, height));
            y += height;
        }
        ASSERT_TRUE(list.trimTail(trim));
        EXPECT_EQ(list.height(), 100 - trim);
        EXPECT_TRUE(rowsOf(list) == picture.copy(0, 0, 50, 100 - trim)) << trim;
    }
}

INSTANTIATE_TEST_SUITE_P(Storages, SegmentListTest,
                         testing::Values(SegmentCompression::none, SegmentCompression::png));

TEST(SegmentListTest, StaysAsItIsWhereASegmentIsDamaged) {
    const QImage picture = noisePicture(QSize(50, 100), QImage::Format_RGB32);
    SegmentList list(SegmentCompression::png);
    list.append({{QByteArray("no picture")}, 50, 60, QImage::Format_RGB32});
    list.append(*makeSegment(picture, 60, 40));
    EXPECT_FALSE(list.trimTail(50));
    EXPECT_EQ(list.height(), 100);
    EXPECT_TRUE(rowsOf(list).isNull());
    EXPECT_TRUE(list.trimTail(40));
    EXPECT_FALSE(makeSegment(picture, 90, 11));
    EXPECT_FALSE(makeSegment(picture, -1, 5));
    EXPECT_FALSE(makeSegment(picture, 0, 0));
}

TEST(SeamSearchTest, MovesTheSeamOnlyForAClearGain) {
    const QImage page = noisePicture(QSize(200, 800), QImage::Format_RGB32);
    const QImage previous = page.copy(0, 0, 200, 300);
    QImage current = page.copy(0, 100, 200, 300);
    const SeamRequest request{100, 200};
    EXPECT_EQ(findSeam(previous, current, request), 198);
    // What changed near the end of the overlap is passed by.
    for (int y = 190; y < 200; ++y)
        std::fill_n(reinterpret_cast<QRgb*>(current.scanLine(y)), 200, qRgb(255, 0, 0));
    const int seam = findSeam(previous, current, request);
    EXPECT_GE(seam, 180);
    EXPECT_LT(seam, 190);
    // Rows of a band are none to choose from.
    EXPECT_GE(findSeam(previous, current, {100, 200, 195}), 195);
    EXPECT_EQ(findSeam(previous, current, {100, 1}), 0);
    EXPECT_EQ(findSeam(previous, current, {250, 200}), 198);
}

}  // namespace
}  // namespace kestrio
