#include "render/ImageComposer.h"
#include "render/RenderFixtures.h"
#include "support/NoisePicture.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

CompositeRequest keepingRequest(QSize pixels, double density) {
    EditorStyleSettings style;
    style.mockup.cornerRadius = 0;
    style.backdrop.keepPixels = true;
    CompositeRequest request = requestOf(noisePicture(pixels, QImage::Format_RGB32), style);
    request.screenshot = Image(request.screenshot.bitmap(), density);
    request.canvasState.canvasSize = request.screenshot.pointSize();
    return request;
}

// Where the screenshot stands in the output, pixel by pixel; nowhere where it was resampled.
// Frames round corners and may draw a line along the edge, so `inset` pixels are left out.
std::optional<QRect> foundIn(const QImage& output, const CompositeRequest& request, int inset = 0) {
    const CompositeLayout layout = compositeLayout(request, request.screenshot.pixelDensity());
    const QRectF content = contentRect(layout);
    const QRect place = content.toAlignedRect();
    if (QRectF(place) != content || !output.rect().contains(place)) return std::nullopt;
    const auto inner = [&](const QImage& bitmap) {
        const QRect all = bitmap.rect();
        return bitmap.copy(all.adjusted(inset, inset, -inset, -inset))
            .convertToFormat(QImage::Format_RGB32);
    };
    if (inner(output.copy(place)) != inner(request.screenshot.bitmap())) return std::nullopt;
    return place;
}

TEST(KeepPixels, TheScreenshotIsInTheOutputPixelByPixel) {
    for (const QSize size : {QSize(120, 80), QSize(121, 83)}) {
        for (const double density : {1.0, 1.25, 1.5, 2.0, 3.0}) {
            for (const double padding : {0.0, 7.3, 32.0, 100.0}) {
                CompositeRequest request = keepingRequest(size, density);
                request.backdrop.padding = padding;
                const QImage output = testComposer().compose(request).bitmap();
                const auto place = foundIn(output, request);
                ASSERT_TRUE(place) << size.width() << " at " << density << ", " << padding;
                EXPECT_NEAR(place->left(), padding * density, 1);
                EXPECT_NEAR(output.width(), size.width() + 2 * padding * density, 1);
            }
        }
    }
}

TEST(KeepPixels, FramesStandAroundIt) {
    for (const auto& frame : frameStyles) {
        for (const double scale : {1.0, 1.3}) {
            CompositeRequest request = keepingRequest({301, 200}, 2);
            request.frameStyle = frame.value;
            request.frameScale = scale;
            const QImage output = testComposer().compose(request).bitmap();
            const auto place = foundIn(output, request, 30);
            ASSERT_TRUE(place) << frame.raw;
            const double bar = frameMetrics(frame.value).titleBarHeight * scale * 2;
            EXPECT_NEAR(place->top(), 64 + bar, 1) << frame.raw;
            EXPECT_NEAR(output.height(), 200 + 128 + bar, 1) << frame.raw;
        }
    }
}

TEST(KeepPixels, AShapedOrFixedCanvasGrowsAsFarAsIsNeeded) {
    CompositeRequest shaped = keepingRequest({200, 200}, 2);
    shaped.canvasState.aspectRatio = AspectRatio::custom(16, 9);
    shaped.canvasState.canvasSize =
        canvasHolding(shaped.screenshot.pointSize(), shaped.canvasState.aspectRatio);
    const QImage wide = testComposer().compose(shaped).bitmap();
    EXPECT_TRUE(foundIn(wide, shaped));
    EXPECT_EQ(wide.height(), 200 + 128);
    EXPECT_NEAR(wide.width() / double(wide.height()), 16.0 / 9, 0.01);

    CompositeRequest small = keepingRequest({200, 200}, 1);
    small.canvasState.canvasSize = {150, 150};
    const QImage grown = testComposer().compose(small).bitmap();
    EXPECT_TRUE(foundIn(grown, small));
    EXPECT_EQ(grown.size(), QSize(264, 264));

    CompositeRequest large = small;
    large.canvasState.canvasSize = {500, 401};
    const QImage withMargin = testComposer().compose(large).bitmap();
    EXPECT_TRUE(foundIn(withMargin, large)) << "it is not enlarged either";
    EXPECT_EQ(withMargin.size(), QSize(500, 401));
}

TEST(KeepPixels, APreviewHasTheSameGeometry) {
    CompositeRequest request = keepingRequest({301, 200}, 2);
    request.frameStyle = FrameStyle::macOS;
    const QRectF finished = contentRect(compositeLayout(request, 2));
    request.outputScale = 0.7;
    const QRectF preview = contentRect(compositeLayout(request, 2));
    EXPECT_NEAR(preview.left() / 0.7, finished.left() / 2, 0.5);
    EXPECT_NEAR(preview.top() / 0.7, finished.top() / 2, 0.5);
    EXPECT_NEAR(preview.width() / 0.7, finished.width() / 2, 0.01);
}

TEST(KeepPixels, ADensityBelowOneEnlargesNothing) {
    CompositeRequest request = keepingRequest({120, 80}, 0.5);
    EXPECT_TRUE(foundIn(testComposer().compose(request).bitmap(), request));
}

TEST(KeepPixels, StylesThatDoNotUseItAreWrittenAsBefore) {
    EditorStyleSettings style;
    EXPECT_FALSE(encodeJsonText(style).contains("keepPixels"));
    style.backdrop.keepPixels = true;
    EXPECT_EQ(decodeJsonText<EditorStyleSettings>(encodeJsonText(style)), style);
}

}  // namespace
}  // namespace kestrio
