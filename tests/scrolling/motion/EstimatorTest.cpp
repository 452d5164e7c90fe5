#include "scrolling/motion/ScrollingMotionEstimator.h"

#include <gtest/gtest.h>

#include "support/NoisePicture.h"
#include "support/ScrolledFrames.h"

namespace kestrio {
namespace {

using Kind = ScrollingMotionKind;
using Method = ScrollingMotionMethod;

constexpr double overlap = 0.2;

ScrollingMotionEstimate estimated(const QImage& previous, const QImage& current,
                                  std::optional<int> before = {}, double minOverlap = overlap) {
    return ScrollingMotionEstimator().estimate(previous, current, before, minOverlap);
}

// A page without blank stretches, each of whose rows differs from the others.
QImage noisePage() {
    return noisePicture(QSize(60, 3600), QImage::Format_RGB32).scaled(600, 3600);
}

TEST(EstimatorTest, FindsHowFarTextMoved) {
    const ScrolledFrames frames(ScrollingPage{QSize(800, 6000), 60, 40, 3}, 700);
    for (const int delta : {4, 34, 150, 340}) {
        const auto estimate = estimated(frames.at(500), frames.at(500 + delta));
        EXPECT_EQ(estimate.kind, Kind::moved) << delta;
        EXPECT_EQ(estimate.method, Method::features);
        EXPECT_EQ(estimate.deltaY, delta);
        EXPECT_EQ(estimate.overlapHeight, 700 - delta);
        EXPECT_EQ(estimate.horizontalOffset, 0);
    }
}

TEST(EstimatorTest, MeasuresWideFramesToTheScaleOfItsCopies) {
    const ScrolledFrames frames(ScrollingPage{QSize(1280, 3000), 0, 0, 5, 2}, 1440);
    const auto estimate = estimated(frames.at(100), frames.at(401));
    EXPECT_EQ(estimate.kind, Kind::moved);
    EXPECT_NEAR(estimate.deltaY, 301, 4);
}

TEST(EstimatorTest, NeverMovesUp) {
    const ScrolledFrames frames(ScrollingPage{QSize(800, 4000)}, 600);
    const auto estimate = estimated(frames.at(700), frames.at(600));
    EXPECT_EQ(estimate.kind, Kind::rejected);
    EXPECT_EQ(estimate.method, Method::none);
}

TEST(EstimatorTest, TakesSmallChangesInPlaceForStanding) {
    const ScrolledFrames frames(ScrollingPage{QSize(800, 4000)}, 600);
    const QImage frame = frames.at(700);
    EXPECT_EQ(estimated(frame, frame).method, Method::identical);
    QImage changed = frame;
    QPainter(&changed).fillRect(200, 100, 300, 90, Qt::darkRed);
    const auto estimate = estimated(frame, changed);
    EXPECT_EQ(estimate.kind, Kind::stationary);
    EXPECT_EQ(estimate.method, Method::features);
    EXPECT_EQ(estimate.overlapHeight, 600);
}

TEST(EstimatorTest, TellsHorizontalMotionAndStrangers) {
    const QImage page = paintScrollingPage(ScrollingPage{QSize(900, 3000)});
    const auto cut = [&page](int x, int y) { return page.copy(x, y, 800, 600); };
    const auto sideways = estimated(cut(0, 500), cut(7, 560));
    EXPECT_EQ(sideways.kind, Kind::horizontal);
    EXPECT_NEAR(sideways.horizontalOffset, 7, 1);
    EXPECT_NE(estimated(cut(0, 0), cut(0, 2000)).kind, Kind::moved);
    EXPECT_EQ(estimated(cut(0, 0), page.copy(0, 0, 800, 599)).kind, Kind::rejected);
    EXPECT_EQ(estimated({}, {}).kind, Kind::rejected);
}

TEST(EstimatorTest, ReportsBandsThatStay) {
    const ScrolledFrames frames(ScrollingPage{QSize(800, 6000), 60, 50, 3}, 700);
    const auto estimate = estimated(frames.at(900), frames.at(1100));
    ASSERT_EQ(estimate.kind, Kind::moved);
    // Bands are padded, and text in them need not fill them.
    EXPECT_NEAR(estimate.topFixedHeight, 60, 30);
    EXPECT_LE(estimate.bottomFixedHeight, 80);
}

TEST(EstimatorTest, ComparesRowsWhereFeaturesAreTooFew) {
    // Low frames have no room for features.
    const ScrolledFrames frames(noisePage(), 32);
    const auto estimate = estimated(frames.at(100), frames.at(108));
    EXPECT_EQ(estimate.kind, Kind::moved);
    EXPECT_EQ(estimate.method, Method::pixels);
    EXPECT_EQ(estimate.deltaY, 8);
    // With a motion expected far away, the window around that finds nothing.
    const ScrolledFrames tall(noisePage().copy(0, 0, 30, 3600), 400);
    EXPECT_EQ(estimated(tall.at(100), tall.at(140)).deltaY, 40);
    const auto expected = estimated(tall.at(100), tall.at(140), 300);
    EXPECT_EQ(expected.kind, Kind::failed);
}

TEST(EstimatorTest, KeepsTheOverlapWithinItsLimits) {
    const ScrolledFrames frames(ScrollingPage{QSize(800, 4000)}, 600);
    // A share of 0.99 counts as 0.95, which leaves 30 rows of motion.
    EXPECT_EQ(estimated(frames.at(500), frames.at(525), {}, 0.99).kind, Kind::moved);
    EXPECT_NE(estimated(frames.at(500), frames.at(540), {}, 0.99).kind, Kind::moved);
    EXPECT_NE(estimated(frames.at(500), frames.at(1085), {}, 0).kind, Kind::moved);
}

}  // namespace
}  // namespace kestrio
