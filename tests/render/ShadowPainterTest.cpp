#include "render/ShadowPainter.h"

#include <gtest/gtest.h>

#include "imaging/ExportError.h"
#include "render/RenderFixtures.h"

namespace kestrio {
namespace {

QImage whiteBitmap(QSize size) {
    QImage bitmap(size, QImage::Format_ARGB32_Premultiplied);
    bitmap.fill(Qt::white);
    return bitmap;
}

QPainterPath rectangle(const QRectF& rect) {
    QPainterPath path;
    path.addRect(rect);
    return path;
}

int largestDifference(const QImage& first, const QImage& second) {
    int largest = 0;
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x) {
            const int difference = qGreen(first.pixel(x, y)) - qGreen(second.pixel(x, y));
            largest = std::max(largest, std::abs(difference));
        }
    }
    return largest;
}

// The work is confined to what casts a shadow into the clip, which must not be seen in the shadow.
TEST(ShadowPainter, PartsOfAShadowMeetWithoutASeam) {
    const ShadowMetrics shadow{20, 0.9, {8, 8}};
    const QRectF silhouettes[] = {{60, 40, 80, 60}, {-30, -20, 100, 50}, {195, 10, 90, 200}};
    for (const QRectF& silhouette : silhouettes) {
        QImage whole = whiteBitmap({200, 150});
        paintShadow(whole, rectangle(silhouette), shadow, 1, whole.rect(), {});
        QImage parts = whiteBitmap({200, 150});
        for (const QRect& part : {QRect(0, 0, 70, 150), QRect(70, 0, 5, 150), QRect(75, 0, 125, 90),
                                  QRect(75, 90, 125, 60)}) {
            paintShadow(parts, rectangle(silhouette), shadow, 1, part, {});
        }
        EXPECT_NE(whole, whiteBitmap({200, 150}));
        EXPECT_LE(largestDifference(whole, parts), 3) << silhouette.x();
    }
}

TEST(ShadowPainter, AShadowThatFallsFarAwayIsRefusedInsteadOfTakingGigabytes) {
    QImage bitmap = whiteBitmap({100, 100});
    const QPainterPath silhouette = rectangle({0, 0, 100, 100});
    EXPECT_THROW(paintShadow(bitmap, silhouette, {30, 0.35, {8, 8}}, 1e5, bitmap.rect(), {}),
                 ExportError);
    EXPECT_NO_THROW(paintShadow(bitmap, silhouette, {30, 0.35, {0, 0}}, 1e5, bitmap.rect(), {}));
}

}  // namespace
}  // namespace kestrio
