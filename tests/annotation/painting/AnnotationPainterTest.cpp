#include "annotation/painting/AnnotationPainter.h"

#include "annotation/painting/ArrowShape.h"
#include "annotation/painting/MeasurementLabel.h"
#include "annotation/painting/SmoothStroke.h"
#include "core/Parallel.h"
#include "imaging/filters/Resample.h"
#include "support/AnnotationSamples.h"

#include <gtest/gtest.h>
#include <set>

namespace kestrio {
namespace {

constexpr CodableColor black{0, 0, 0, 1};
constexpr CodableColor translucentRed{1, 0, 0, 0.5};

QImage painted(const std::vector<AnyAnnotation>& annotations, QSize size = {200, 160},
               double scale = 1) {
    QImage picture(size * scale, QImage::Format_RGB32);
    picture.fill(Qt::white);
    paintAnnotations(picture, annotations, {QPointF(), {scale, scale}, scale});
    return picture;
}

QImage painted(const AnyAnnotation& annotation) {
    return painted(std::vector{annotation});
}

bool isBlank(const QImage& picture) {
    QImage blank(picture.size(), picture.format());
    blank.fill(Qt::white);
    return picture == blank;
}

// The smallest rectangle around everything that is not white.
QRect inkOf(const QImage& picture) {
    QRect ink;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixel(x, y) != 0xffffffff) ink |= QRect(x, y, 1, 1);
    return ink;
}

TEST(ArrowShape, HeadsGrowWithTheStrokeFromALeastSize) {
    EXPECT_EQ((ArrowGeometry{{0, 0}, {100, 0}, 2}.headSize()), 12);
    EXPECT_EQ((ArrowGeometry{{0, 0}, {100, 0}, 8}.headSize()), 32);
    EXPECT_EQ((ArrowGeometry{{0, 0}, {100, 0}, 4}.headSize(2)), 24) << "a point is two pixels";
}

TEST(ArrowShape, TheShaftEndsInsideTheHead) {
    const ArrowGeometry arrow{{0, 50}, {100, 50}, 4};
    EXPECT_NEAR(arrowShaft(arrow, 20).boundingRect().right(), 84, 1e-9);
    EXPECT_EQ(arrowhead(arrow, 20).boundingRect(), QRectF(80, 40, 20, 20));
}

TEST(ArrowShape, ShortArrowsRunBackAndEmptyOnesAreNothing) {
    const ArrowGeometry shorter{{0, 0}, {5, 0}, 2};
    EXPECT_NEAR(arrowShaft(shorter, shorter.headSize()).boundingRect().left(), 5 - 9.6, 1e-9);
    const ArrowGeometry none{{7, 7}, {7, 7}, 2};
    EXPECT_TRUE(arrowShaft(none, 12).isEmpty());
    EXPECT_TRUE(arrowhead(none, 12).isEmpty());
    EXPECT_TRUE(isBlank(painted(ArrowAnnotation{{}, {7, 7}, {7, 7}, {}, black, 4})));
}

// Where parts of one record overlap, a translucent colour must not add up.
TEST(AnnotationPainter, TranslucentColoursAreEven) {
    const QUuid id;
    const AnyAnnotation shapes[] = {
        ArrowAnnotation{id, {20, 80}, {180, 100}, {}, translucentRed, 10},
        ArrowAnnotation{id, {100, 80}, {110, 80}, {}, translucentRed, 10},
        RectangleAnnotation{id, {40, 40, 100, 60}, translucentRed, 12, FillMode::both, 8, 30},
        CircleAnnotation{id, {100, 80}, 40, translucentRed, 12, FillMode::both},
        BrushAnnotation{
            id, {{20, 20}, {180, 60}, {20, 100}, {180, 140}, {100, 10}}, translucentRed, 18, true},
    };
    for (const AnyAnnotation& shape : shapes) {
        const QImage picture = painted(shape);
        int darkest = 255, covered = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                darkest = std::min(darkest, qGreen(picture.pixel(x, y)));
                covered += qGreen(picture.pixel(x, y)) < 130;
            }
        }
        EXPECT_NEAR(darkest, 127, 2) << int(shape.type());
        EXPECT_GT(covered, 200) << int(shape.type());
    }
}

// A record must look alike on a canvas at half the size: the same wrapping, the same proportions.
TEST(AnnotationPainter, LooksAlikeAtEveryScale) {
    for (const AnyAnnotation& annotation : oneOfEach()) {
        const QImage single = painted({annotation});
        const QImage twice = painted({annotation}, {200, 160}, 2);
        const QImage half = scaledTo(twice, single.size());
        double difference = 0;
        for (int y = 0; y < single.height(); ++y)
            for (int x = 0; x < single.width(); ++x)
                difference += std::abs(qGreen(single.pixel(x, y)) - qGreen(half.pixel(x, y)));
        const QRect ink = inkOf(single);
        if (ink.isEmpty()) continue;
        EXPECT_LT(difference / (ink.width() * ink.height()), 8.0) << int(annotation.type());
        const QRect halfInk = inkOf(half);
        EXPECT_LE((halfInk.center() - ink.center()).manhattanLength(), 2);
    }
}

TEST(AnnotationPainter, FollowsTheMapping) {
    QImage picture(100, 100, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    const RectangleAnnotation rectangle{{}, {10, 10, 10, 10}, black, 0, FillMode::fill, 0, 0};
    paintAnnotation(painter, rectangle, {{5, 15}, {2, 3}, 2});
    painter.end();
    EXPECT_EQ(inkOf(picture), QRect(25, 45, 20, 30));
}

// So large that every record lies on several strips.
TEST(AnnotationPainter, StripsLeaveNoSeams) {
    constexpr double scale = 10;
    constexpr QSize size(2000, 1600);
    const std::vector<AnyAnnotation> annotations = oneOfEach();
    const AnnotationMapping mapping{QPointF(), {scale, scale}, scale};
    QImage whole(size, QImage::Format_RGB32);
    whole.fill(Qt::white);
    QPainter painter(&whole);
    for (const AnyAnnotation& annotation : annotations)
        paintAnnotation(painter, annotation, mapping);
    painter.end();
    QImage inStrips(size, QImage::Format_RGB32);
    inStrips.fill(Qt::white);
    paintAnnotations(inStrips, annotations, mapping);
    int greatest = 0;
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width() * 4; ++x)
            greatest = std::max(greatest,
                                std::abs(whole.constScanLine(y)[x] - inStrips.constScanLine(y)[x]));
    EXPECT_LE(greatest, 4) << "edges are rounded otherwise where a shape is cut";
}

TEST(AnnotationPainter, CentresNumbersOnTheirBadges) {
    int previousHeight = 1000;
    for (const qint64 number : {8, 88, 888}) {
        const QImage picture =
            painted(NumberAnnotation{{}, {100, 80}, number, {1, 0, 0, 1}, 120, 0});
        QRect digits;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (QLineF(x, y, 100, 80).length() < 58 && qGreen(picture.pixel(x, y)) > 128)
                    digits |= QRect(x, y, 1, 1);
        EXPECT_NEAR(digits.center().x(), 99.5, 1) << number;
        EXPECT_NEAR(digits.center().y(), 79.5, 1) << number;
        EXPECT_LT(digits.height(), previousHeight);
        previousHeight = digits.height();
    }
}

TEST(AnnotationPainter, TellsMeasuresInWholePixels) {
    EXPECT_EQ(measurementLabel({{}, {0, 0}, {10.4, 0}, black, 2}, 1), QStringLiteral("10 px"));
    EXPECT_EQ(measurementLabel({{}, {0, 0}, {30, 40}, black, 2}, 1), QStringLiteral("50 px"));
    EXPECT_EQ(measurementLabel({{}, {0, 0}, {30, 40}, black, 2}, 2), QStringLiteral("100 px"));
}

TEST(SmoothStroke, CurvesGentlyAndKeepsStraightPartsAndCorners) {
    // A long leg into a corner: the curve may leave the polyline by the slack and no more.
    const std::vector<QPointF> corner = {{0, 0}, {300, 0}, {300, 200}};
    for (const QPointF& point : smoothStroke(corner, 1.5)) {
        EXPECT_LE(point.x(), 301.6);
        EXPECT_GE(point.y(), -1.6);
    }
    // Points on a circle, as far apart as thinning leaves them: the curve follows the circle, which
    // straight lines would leave by 1.4.
    std::vector<QPointF> circle;
    for (int i = 0; i <= 36; ++i)
        circle.push_back(QLineF::fromPolar(40, i * 30).p2());
    const std::vector<QPointF> smooth = smoothStroke(circle, 1.5);
    for (std::size_t i = smooth.size() / 3; i < smooth.size() * 2 / 3; ++i) {
        const QPointF middle = (smooth[i] + smooth[i + 1]) / 2;
        EXPECT_NEAR(QLineF({}, middle).length(), 40, 0.25) << i;
    }
}

TEST(AnnotationPainter, DrawsADotForASinglePoint) {
    EXPECT_EQ(inkOf(painted(BrushAnnotation{{}, {{50, 50}}, black, 10, false})),
              QRect(45, 45, 10, 10));
}

// Whatever a file may say: nothing crashes, nothing hangs, damaged places draw nothing.
TEST(AnnotationPainter, StandsDamagedRecords) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double bad : {nan, infinity, -infinity, 1e300, -1e300}) {
        const QUuid id;
        const AnyAnnotation nothingToSee[] = {
            ArrowAnnotation{id, {bad, 0}, {50, 50}, {}, black, 4},
            RectangleAnnotation{id, {bad, 10, 20, 20}, black, 4, FillMode::both, 0, 0},
            CircleAnnotation{id, {50, 50}, bad, black, 4, FillMode::fill},
            TextAnnotation{id, {bad, 0, 100, 40}, QStringLiteral("x"), black, 16},
            NumberAnnotation{id, {50, bad}, 1, black, 30, 0},
            EmojiAnnotation{id, {50, bad}, QStringLiteral("🎯"), 30, black, 0, 0},
            MeasurementAnnotation{id, {50, bad}, {10, 10}, black, 2},
        };
        for (const AnyAnnotation& annotation : nothingToSee)
            EXPECT_TRUE(isBlank(painted(annotation))) << int(annotation.type()) << " " << bad;
        painted(RectangleAnnotation{id, {10, 10, 50, 50}, black, 4, FillMode::both, bad, bad});
        painted(TextAnnotation{id, {0, 0, 100, 40}, QStringLiteral("x"), black, bad});
        painted(NumberAnnotation{id, {50, 50}, 1, black, bad, bad});
        painted(BrushAnnotation{id, {{10, 10}, {bad, 20}, {60, 60}}, black, 6, false});
        painted(BrushAnnotation{id, {{10, 10}, {40, 20}}, black, bad, false});
    }
    const QUuid id;
    const AnyAnnotation empty[] = {
        TextAnnotation{id, {0, 0, 100, 40}, {}, black, 16},
        TextAnnotation{id, {0, 0, 100, 40}, QStringLiteral("x"), black, 0},
        TextAnnotation{id, {0, 0, 0, 40}, QStringLiteral("x"), black, 16},
        CircleAnnotation{id, {50, 50}, 0, black, 4, FillMode::fill},
        NumberAnnotation{id, {50, 50}, 1, black, 0, 0},
        EmojiAnnotation{id, {50, 50}, {}, 40, black, 0, 0},
        BrushAnnotation{id, {}, black, 4, false},
        BlurAnnotation{id, {0, 0, 100, 100}, 10, black, 1, BlurType::solid, 1},
    };
    for (const AnyAnnotation& annotation : empty)
        EXPECT_TRUE(isBlank(painted(annotation))) << int(annotation.type());
}

}  // namespace
}  // namespace kestrio
