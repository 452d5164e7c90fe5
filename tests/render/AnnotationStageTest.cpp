#include "annotation/painting/MeasurementLabel.h"
#include "render/AnnotationStage.h"
#include "render/RenderFixtures.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

constexpr QRgb green = 0xff00ff00;

bool isGreen(QRgb pixel) {
    return qGreen(pixel) > 200 && qRed(pixel) < 60 && qBlue(pixel) < 60;
}

QRect greenIn(const QImage& picture) {
    QRect found;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (isGreen(picture.pixel(x, y))) found |= QRect(x, y, 1, 1);
    return found;
}

/// A white screenshot with a green square on it.
Image pictureWithSquare(double density = 1) {
    QImage picture(QSize(300, 200) * density, QImage::Format_RGB32);
    picture.fill(Qt::white);
    for (int y = 0; y < 40 * density; ++y)
        for (int x = 0; x < 40 * density; ++x)
            picture.setPixel(int(200 * density) + x, int(120 * density) + y, green);
    return Image(picture, density);
}

CompositeRequest requestFor(const Image& screenshot) {
    CompositeRequest request;
    request.screenshot = screenshot;
    request.setStyle(bareStyle());
    request.backdrop.type = BackdropType::solid;
    request.backdrop.solidColor = CodableColor{0, 0, 1, 1};
    request.canvasState.canvasSize = screenshot.pointSize();
    return request;
}

// Whatever lies around the screenshot, a mark that covers the square covers it still.
TEST(AnnotationStage, MarksStayOnWhatTheyMark) {
    const AnyAnnotation cover =
        RectangleAnnotation{{}, {200, 120, 40, 40}, {1, 0, 0, 1}, 0, FillMode::fill, 0, 0};
    const std::pair<const char*, std::function<void(CompositeRequest&)>> changes[] = {
        {"bare", [](CompositeRequest&) {}},
        {"padding", [](CompositeRequest& request) { request.backdrop.padding = 48; }},
        {"frame",
         [](CompositeRequest& request) {
             request.frameStyle = FrameStyle::safari;
             request.frameScale = 1.5;
             request.backdrop.padding = 20;
         }},
        {"square canvas",
         [](CompositeRequest& request) {
             request.canvasState.canvasSize = {420, 420};
         }},
        {"turned", [](CompositeRequest& request) { request.canvasState.transform.rotation = 90; }},
    };
    for (const double density : {1.0, 2.0}) {
        for (const auto& [name, change] : changes) {
            CompositeRequest request = requestFor(pictureWithSquare(density));
            change(request);
            EXPECT_FALSE(greenIn(testComposer().compose(request).bitmap()).isEmpty()) << name;
            request.annotations = {cover};
            // A pixel of the edge may be resampled to either side.
            const QRect left = greenIn(testComposer().compose(request).bitmap());
            EXPECT_TRUE(left.isEmpty() || std::min(left.width(), left.height()) <= 1) << name;
        }
    }
}

TEST(AnnotationStage, WidthsAndTypeShrinkWithTheScreenshot) {
    const CompositeRequest bare = requestFor(pictureWithSquare(2));
    CompositeRequest padded = bare;
    padded.backdrop.padding = 50;
    const auto mappingOf = [](const CompositeRequest& request) {
        return annotationMapping(compositeLayout(request, 2));
    };
    EXPECT_EQ(mappingOf(bare).strokeScale, 2);
    EXPECT_EQ(mappingOf(padded).strokeScale, 1) << "100 of 200 points are left to its height";
    const MeasurementAnnotation across{{}, {0, 0}, {100, 0}, {}, 2};
    EXPECT_EQ(measurementLabel(across, mappingOf(padded).pixelDensity), QStringLiteral("200 px"));
}

TEST(AnnotationStage, BlursChangeTheScreenshotAndNothingBesideIt) {
    CompositeRequest request = requestFor(pictureWithSquare());
    request.backdrop.padding = 40;
    const QImage plain = testComposer().compose(request).bitmap();
    request.annotations = {
        BlurAnnotation{{}, {-500, -500, 2000, 2000}, 10, {}, 0, BlurType::solid, 1}};
    const QImage covered = testComposer().compose(request).bitmap();
    const QRect content = contentRect(compositeLayout(request, 1)).toAlignedRect();
    for (int y = 0; y < plain.height(); ++y) {
        for (int x = 0; x < plain.width(); ++x) {
            if (content.contains(x, y)) {
                ASSERT_EQ(covered.pixel(x, y) & 0xffffff, 0u) << x << ' ' << y;
            } else {
                ASSERT_EQ(covered.pixel(x, y), plain.pixel(x, y)) << x << ' ' << y;
            }
        }
    }
}

TEST(AnnotationStage, NothingIsMarkedWhereTheScreenshotHasNoRoom) {
    CompositeRequest request = requestFor(Image(QImage(120, 90, QImage::Format_RGB32)));
    request.backdrop.padding = 100;
    const QImage plain = testComposer().compose(request).bitmap();
    request.annotations = {
        RectangleAnnotation{{}, {0, 0, 50, 50}, {1, 0, 0, 1}, 4, FillMode::both, 0, 0}};
    EXPECT_EQ(testComposer().compose(request).bitmap(), plain);
}

}  // namespace
}  // namespace kestrio
