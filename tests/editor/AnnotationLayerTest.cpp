#include "editor/canvas/AnnotationLayer.h"

#include "annotation/painting/AnnotationPainter.h"

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

namespace kestrio {
namespace {

using Records = AnnotationLayer::Records;

constexpr QRect view(0, 0, 420, 300);

QUuid idOf(int number) {
    return QUuid(static_cast<uint>(number + 1), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
}

/// Every kind that the layer paints, overlapping, some turned and translucent.
Records sheet() {
    const CodableColor red{0.9, 0.2, 0.1, 1}, veil{0.1, 0.4, 0.9, 0.5};
    return {
        RectangleAnnotation{idOf(0), QRectF(40, 40, 160, 90), veil, 6, FillMode::both, 8, 30},
        ArrowAnnotation{idOf(1), {60, 200}, {240, 60}, {}, red, 5},
        TextAnnotation{idOf(2), QRectF(90, 60, 120, 20),
                       QStringLiteral("Words that flow out of their box"), red, 20},
        CircleAnnotation{idOf(3), {180, 140}, 50, veil, 8, FillMode::both},
        NumberAnnotation{idOf(4), {150, 120}, 12, red, 32, 0},
        BrushAnnotation{idOf(5), {{40, 180}, {90, 120}, {160, 190}, {260, 100}}, veil, 14, true},
        EmojiAnnotation{idOf(6), {220, 120}, QStringLiteral("🎯🎉"), 40, red, 0, 15},
        MeasurementAnnotation{idOf(7), {60, 240}, {280, 230}, red, 3},
    };
}

QImage shownBy(const AnnotationLayer& layer) {
    QImage picture(view.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    layer.paint(painter);
    return picture;
}

AnnotationMapping mappingOf(const QPointF& origin, double scale) {
    return {origin, {scale, scale}, scale};
}

QImage expected(const Records& records, double scale, const QPointF& origin = {}) {
    QImage picture(view.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    paintAnnotations(picture, records, mappingOf(origin, scale));
    return picture;
}

int greatestDifference(const QImage& a, const QImage& b, const QRect& outsideOf = {}) {
    int greatest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (outsideOf.contains(x, y)) continue;
            for (int channel = 0; channel < 4; ++channel) {
                greatest = std::max(greatest, std::abs(a.constScanLine(y)[4 * x + channel] -
                                                       b.constScanLine(y)[4 * x + channel]));
            }
        }
    }
    return greatest;
}

struct AnnotationLayerTest : testing::Test {
    AnnotationLayer layer;
    double scale = 1;
    QPointF origin;
    bool isRedrawn = false;

    void SetUp() override {
        QObject::connect(&layer, &AnnotationLayer::redrawn, &layer, [this] { isRedrawn = true; });
    }

    AnnotationMapping mapping() const { return mappingOf(origin, scale); }

    QRect show(const Records& records) { return layer.show(records, view, mapping()); }

    void waitForBackground() {
        QElapsedTimer timer;
        timer.start();
        isRedrawn = false;
        while (!isRedrawn && timer.elapsed() < 5000)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        ASSERT_TRUE(isRedrawn);
    }

    void waitForSides() {
        QElapsedTimer timer;
        timer.start();
        while (!layer.isPreparedForGesture() && timer.elapsed() < 5000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        ASSERT_TRUE(layer.isPreparedForGesture());
    }

    /// What changes at once must lie within what is reported, and be as if painted again.
    void expectPatched(const Records& records, const char* what) {
        const QImage before = shownBy(layer);
        const QRect stale = show(records);
        const QImage after = shownBy(layer);
        EXPECT_EQ(greatestDifference(before, after, stale), 0) << what;
        // What lies above a record and is kept apart is rounded on its own.
        EXPECT_LE(greatestDifference(after, expected(records, scale)), 3) << what;
    }
};

TEST_F(AnnotationLayerTest, APatchIsAsPaintedAnew) {
    Records records = sheet();
    expectPatched(records, "first");
    for (std::size_t i = 0; i < records.size(); ++i) {
        records[i].setBounds(records[i].bounds().translated(37, -11));
        expectPatched(records, records[i].type() == AnnotationType::text ? "text" : "moved");
    }
    records[3].setColor({0, 0.6, 0.2, 1});
    expectPatched(records, "recoloured");
    records[2].as<TextAnnotation>()->fontWeight = CodableFontWeight::bold;
    expectPatched(records, "equal, but set otherwise");
    std::rotate(records.begin() + 1, records.begin() + 2, records.begin() + 6);
    expectPatched(records, "reordered");
    records.erase(records.begin() + 4);
    expectPatched(records, "deleted");
    records.clear();
    expectPatched(records, "all gone");
}

// Before and after what lies below and above has come from the background.
TEST_F(AnnotationLayerTest, ARecordThatMovesStaysInItsPlaceInTheOrder) {
    const Records before = sheet();
    for (std::size_t moving = 0; moving < before.size(); ++moving) {
        Records records = before;
        show(records);
        for (int step = 1; step < 8; ++step) {
            records[moving].setBounds(records[moving].bounds().translated(3, 2));
            expectPatched(records, "dragged");
            if (step == 3) waitForSides();
        }
        records[(moving + 1) % records.size()].setColor({0, 0, 0, 1});
        expectPatched(records, "another one after it");
        layer.endGesture();
    }
}

TEST_F(AnnotationLayerTest, ManyChangesAndOtherScalesComeFromTheBackground) {
    Records records = sheet();
    show(records);
    for (int i = 0; i < 3; ++i) {
        const Records more = sheet();
        records.insert(records.end(), more.begin(), more.end());
    }
    EXPECT_TRUE(show(records).isEmpty());
    waitForBackground();
    show(records);
    EXPECT_EQ(greatestDifference(shownBy(layer), expected(records, scale)), 0);
    scale = 1.5;
    show(records);
    EXPECT_NE(shownBy(layer), expected(records, scale)) << "the old picture stands in, scaled";
    records.pop_back();
    origin = {12.5, -7.25};
    show(records);
    waitForBackground();
    show(records);
    EXPECT_EQ(greatestDifference(shownBy(layer), expected(records, scale, origin)), 0);
    records[1].setBounds(records[1].bounds().translated(20, 5));
    show(records);
    EXPECT_LE(greatestDifference(shownBy(layer), expected(records, scale, origin)), 3);
}

}  // namespace
}  // namespace kestrio
