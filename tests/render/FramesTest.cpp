#include "render/ShadowPainter.h"
#include "render/frames/FramePainter.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

QImage paintedFrame(FrameStyle style, double scale, double contentWidth = 400) {
    const FrameShape shape{style, QRectF(40, 60, contentWidth, 200), 1};
    QImage image(QSizeF((contentWidth + 100) * scale, 300 * scale).toSize(),
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.scale(scale, scale);
    paintFrameBehindContent(painter, shape);
    paintFrameOverContent(painter, shape);
    painter.end();
    return image;
}

TEST(FrameShape, TitleBarsAndSheetsExtendTheContent) {
    for (const FrameMetrics& row : frameMetricsTable) {
        for (double scale : {0.0, 1.0, 2.0, -1.0}) {
            const FrameShape shape{row.style, QRectF(100, 100, 300, 200), scale};
            const double acts = std::max(scale, 0.0);
            EXPECT_EQ(shape.window(), QRectF(100, 100 - row.titleBarHeight * acts, 300,
                                             200 + row.titleBarHeight * acts));
            EXPECT_EQ(shape.extent().width(), 300 + 8 * acts * row.backSheets);
            EXPECT_EQ(shape.silhouette().boundingRect(), shape.extent());
            EXPECT_EQ(shape.contentPath().boundingRect(), shape.content);
        }
    }
}

TEST(FramePainter, PaintsOnlyInsideItsExtentAndAllStylesDiffer) {
    std::vector<QImage> seen;
    for (const FrameMetrics& row : frameMetricsTable) {
        const QImage image = paintedFrame(row.style, 1);
        if (row.style == FrameStyle::none) continue;
        EXPECT_EQ(qAlpha(image.pixel(30, 100)), 0);
        EXPECT_EQ(qAlpha(image.pixel(240, int(60 - row.titleBarHeight - 2))), 0);
        EXPECT_EQ(qAlpha(image.pixel(240, 58)), 255) << row.accessibilityText;
        EXPECT_EQ(std::count(seen.begin(), seen.end(), image), 0);
        seen.push_back(image);
    }
    EXPECT_EQ(paintedFrame(FrameStyle::none, 1).pixel(240, 100), 0u);
}

TEST(FramePainter, IsTheSamePictureAtEveryScale) {
    for (const FrameMetrics& row : frameMetricsTable) {
        const QImage small = paintedFrame(row.style, 1);
        const QImage large = paintedFrame(row.style, 3);
        const QImage reduced =
            large.scaled(small.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        qint64 sum = 0;
        for (int y = 0; y < small.height(); ++y) {
            for (int x = 0; x < small.width() * 4; ++x) {
                sum += std::abs(small.constScanLine(y)[x] - reduced.constScanLine(y)[x]);
            }
        }
        EXPECT_LT(double(sum) / (4.0 * small.width() * small.height()), 0.6)
            << row.accessibilityText;
    }
}

TEST(FramePainter, AddressFieldsAndLightsStandWhereTheyShould) {
    const QImage safari = paintedFrame(FrameStyle::safari, 1, 700);
    const int middle = 60 - 22;
    EXPECT_EQ(safari.pixel(40 + 18, middle), qRgb(255, 97, 89));
    EXPECT_EQ(safari.pixel(40 + 58, middle), qRgb(89, 199, 89));
    // 300 wide in a window of 700, half of one of 400: white inside, bar colour outside.
    EXPECT_EQ(safari.pixel(40 + 350 - 145, middle), qRgb(255, 255, 255));
    EXPECT_NE(safari.pixel(40 + 350 - 156, middle), qRgb(255, 255, 255));
    const QImage narrow = paintedFrame(FrameStyle::safari, 1, 400);
    EXPECT_EQ(narrow.pixel(40 + 200 - 95, middle), qRgb(255, 255, 255));
    EXPECT_NE(narrow.pixel(40 + 200 - 106, middle), qRgb(255, 255, 255));
}

TEST(FramePainter, NarrowWindowsDropWhatDoesNotFit) {
    for (const FrameMetrics& row : frameMetricsTable) {
        for (double width : {1.0, 30.0, 90.0, 150.0}) {
            const QImage image = paintedFrame(row.style, 1, width);
            const int reach = 8 * row.backSheets;
            EXPECT_EQ(qAlpha(image.pixel(int(40 + width + reach + 2), 100)), 0) << width;
        }
    }
}

TEST(Shadow, FallsAwayFromTheLightOnTheSidesAndTowardsItVertically) {
    struct Row {
        LightSource light;
        int dx, dy;
    };
    const Row rows[] = {{LightSource::topLeft, 8, -8},
                        {LightSource::bottomRight, -8, 8},
                        {LightSource::center, 0, 0},
                        {LightSource::top, 0, -8},
                        {LightSource::left, 8, 0}};
    for (const Row& row : rows) {
        QImage image(200, 200, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainterPath square;
        square.addRect(60, 60, 80, 80);
        paintShadow(image, square, shadowMetrics({0, true, ShadowIntensity::low, row.light}), 1,
                    image.rect(), {});
        double mass = 0, x = 0, y = 0;
        for (int py = 0; py < 200; ++py) {
            for (int px = 0; px < 200; ++px) {
                const int alpha = qAlpha(image.pixel(px, py));
                mass += alpha;
                x += alpha * (px + 0.5);
                y += alpha * (py + 0.5);
            }
        }
        EXPECT_NEAR(x / mass, 100 + row.dx, 0.3);
        EXPECT_NEAR(y / mass, 100 + row.dy, 0.3);
        EXPECT_NEAR(mass / 255 / (80 * 80), 0.15, 0.004);
    }
}

TEST(Shadow, StaysInsideItsClipAndOffWhatIsCovered) {
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainterPath square;
    square.addRect(30, 30, 40, 40);
    paintShadow(image, square, shadowMetrics({}), 1, QRect(20, 20, 50, 50), QRect(40, 40, 10, 10));
    EXPECT_EQ(image.pixel(19, 50), 0u);
    EXPECT_EQ(image.pixel(45, 45), 0u);
    EXPECT_NE(image.pixel(21, 50), 0u);
}

}  // namespace
}  // namespace kestrio
