#include "scrolling/overlays/RegionRing.h"
#include "scrolling/overlays/ScrollingRegionOverlayView.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace kestrio {
namespace {

const QRectF display(0, 0, 1000, 800);

QRegion covered(const RegionRing& ring) {
    QRegion all;
    for (const QRect& strip : ring.strips)
        all += strip;
    return all;
}

TEST(RegionRing, StandsRoundTheRegionAndNowhereInIt) {
    const RingMeasures measures{.clearance = 1, .lineWidth = 3, .outside = 2};
    const RegionRing ring = ringAround({100, 200, 300, 150}, display, measures);
    EXPECT_EQ(covered(ring), QRegion(93, 193, 314, 164) - QRegion(99, 199, 302, 152));
    EXPECT_EQ(ring.line, QRectF(96.5, 196.5, 307, 157));
    // The line's own shape: whole along the sides, without the corners.
    EXPECT_TRUE(ring.shape.contains(QRect(120, 195, 200, 3)));
    EXPECT_TRUE(ring.shape.contains(QRect(402, 220, 3, 100)));
    EXPECT_FALSE(ring.shape.contains(QPoint(95, 195)));
    EXPECT_FALSE(ring.shape.contains(QPoint(404, 354)));
    EXPECT_FALSE(ring.shape.intersects(QRect(98, 210, 304, 120)));
    EXPECT_TRUE((ring.shape - covered(ring)).isEmpty());
}

TEST(RegionRing, LeavesPartsOfPointsOfTheRegionAlone) {
    const QRectF region(100.5, 200.25, 99.5, 50.5);
    for (const QRect& strip : ringAround(region, display, {}).strips)
        EXPECT_FALSE(QRectF(strip).intersects(region.adjusted(-1, -1, 1, 1)));
}

TEST(RegionRing, EndsAtTheEdgesOfItsDisplay) {
    const RegionRing corner = ringAround({0, 0, 400, 300}, display, {});
    EXPECT_EQ(covered(corner), QRegion(401, 0, 4, 305) + QRegion(0, 301, 401, 4));
    const RegionRing column = ringAround({300, 0, 200, 800}, display, {});
    EXPECT_EQ(column.strips.size(), 2U);
    EXPECT_TRUE(ringAround(display, display, {}).strips.empty());
    // The display beside it shows nothing of the ring.
    const QRectF right(1000, 0, 640, 480);
    EXPECT_EQ(covered(ringAround({1000, 100, 200, 100}, right, {})).boundingRect().left(), 1000);
}

TEST(RegionOverlayView, DashesWalkAndComeRound) {
    ScrollingRegionOverlayView view;
    EXPECT_TRUE(view.tick());
    EXPECT_DOUBLE_EQ(view.dashPhase, 0.5);
    for (int i = 1; i < 24; ++i)
        view.tick();
    EXPECT_DOUBLE_EQ(view.dashPhase, 0);
}

TEST(RegionOverlayView, AFlashFadesAndTheNextBeginsAnew) {
    ScrollingRegionOverlayView view;
    view.flash();
    EXPECT_DOUBLE_EQ(view.flashAlpha, 1);
    for (int i = 0; i < 10; ++i)
        view.tick();
    EXPECT_NEAR(view.flashAlpha, 0.5, 1e-9);
    view.flash();
    EXPECT_DOUBLE_EQ(view.flashAlpha, 1);
    for (int i = 0; i < 19; ++i)
        view.tick();
    EXPECT_TRUE(view.isFlashing);
    EXPECT_NEAR(view.flashAlpha, 0.05, 1e-9);
    view.tick();
    EXPECT_FALSE(view.isFlashing);
    EXPECT_EQ(view.flashAlpha, 0);
}

TEST(RegionOverlayView, ReducedMotionStandsStillAndFlashesInOneStep) {
    ScrollingRegionOverlayView view;
    view.isMotionReduced = true;
    EXPECT_FALSE(view.isMoving());
    EXPECT_FALSE(view.tick());
    EXPECT_EQ(view.dashPhase, 0);
    view.flash();
    EXPECT_TRUE(view.isMoving());
    int changes = 0;
    for (int i = 0; i < 30; ++i) {
        EXPECT_TRUE(view.flashAlpha == 0 || view.flashAlpha == 1);
        changes += view.tick();
    }
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(view.isFlashing);
}

TEST(RegionOverlayView, PaintsDashesThatMoveAndWhitenInAFlash) {
    const RingMeasures measures;
    const RegionRing ring = ringAround({20, 20, 160, 100}, {0, 0, 200, 140}, measures);
    ScrollingRegionOverlayView view;
    view.borderColor = Qt::blue;
    const auto painted = [&] {
        QImage image(200, 140, QImage::Format_RGB32);
        image.fill(Qt::red);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        view.paint(painter, ring, measures);
        return image;
    };
    const auto countOn = [](const QImage& image, QColor color) {
        int count = 0;
        for (int x = 30; x < 170; ++x)
            count += image.pixelColor(x, 16) == color;
        return count;
    };
    const QImage still = painted();
    EXPECT_NEAR(countOn(still, Qt::blue), 140 * 2 / 3, 20);
    EXPECT_NEAR(countOn(still, Qt::white), 140 / 3, 20);
    view.dashPhase = 6;
    EXPECT_NE(painted(), still);
    view.flash();
    EXPECT_EQ(countOn(painted(), Qt::white), 140);
    EXPECT_EQ(painted().copy(20, 20, 160, 100).pixelColor(80, 50), QColor(Qt::red));
}

}  // namespace
}  // namespace kestrio
