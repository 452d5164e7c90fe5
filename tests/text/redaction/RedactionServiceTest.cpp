#include "text/redaction/RedactionService.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

constexpr QSizeF pictureSize(400, 300);

std::vector<DetectionResult> found(const std::vector<QRectF>& rects) {
    std::vector<DetectionResult> results;
    for (const QRectF& rect : rects)
        results.push_back({SensitiveInfoType::email, QStringLiteral("x"), rect, 1});
    return results;
}

std::vector<QRectF> rectsOf(const std::vector<BlurAnnotation>& annotations) {
    std::vector<QRectF> rects;
    for (const BlurAnnotation& annotation : annotations)
        rects.push_back(annotation.bounds);
    return rects;
}

TEST(RedactionService, PadsWithinThePicture) {
    const auto marks = RedactionService().makeBlurAnnotations(
        found({{2, 3, 50, 10}, {380, 290, 40, 40}, {500, 10, 20, 20}}), pictureSize, 8);
    EXPECT_EQ(rectsOf(marks), (std::vector<QRectF>{{0, 0, 60, 21}, {372, 282, 28, 18}}));
    const BlurAnnotation& mark = marks[0];
    EXPECT_EQ(mark.blurType, BlurType::gaussian);
    EXPECT_EQ(mark.blurRadius, 15);
    EXPECT_EQ(mark.intensity, 0.5);
    EXPECT_EQ(mark.strokeWidth, 0);
    EXPECT_EQ(mark.color.alpha, 0);
    EXPECT_NE(mark.id, marks[1].id);
}

TEST(RedactionService, JoinsWhatNearlyTouchesInTheOrderOfTheFirst) {
    // The last one joins the first only through the third, which is looked at before it.
    const auto marks = RedactionService().makeBlurAnnotations(found({{10, 10, 50, 10},
                                                                     {200, 200, 10, 10},
                                                                     {10, 39, 50, 10},
                                                                     {61.5, 35, 20, 20},
                                                                     {10, 21.5, 50, 16}}),
                                                              pictureSize, 0);
    EXPECT_EQ(rectsOf(marks), (std::vector<QRectF>{{10, 10, 71.5, 45}, {200, 200, 10, 10}}));
    // Two lines three apart, with the padding of the editor.
    EXPECT_EQ(RedactionService()
                  .makeBlurAnnotations(found({{10, 10, 50, 10}, {10, 23, 50, 10}}), pictureSize, 8)
                  .size(),
              1u);
}

TEST(RedactionService, CoversOpaquelyWhereItIsToBeSolid) {
    for (const auto& [kind, type, intensity] :
         {std::tuple(RedactionKind::pixelate, BlurType::pixelate, 0.5),
          std::tuple(RedactionKind::solid, BlurType::solid, 1.0)}) {
        const auto marks =
            RedactionService().makeAnnotations({found({{10, 10, 50, 10}}), pictureSize, 2, kind});
        ASSERT_EQ(marks.size(), 1u);
        EXPECT_EQ(marks[0].blurType, type);
        EXPECT_EQ(marks[0].intensity, intensity);
    }
}

TEST(RedactionService, CountsInPointsOfDensePictures) {
    const Image dense(QImage(800, 600, QImage::Format_RGB32), 2.0);
    const auto results = inPoints(found({{20, 40, 100, 30}}), dense);
    EXPECT_EQ(results[0].boundingBox, QRectF(10, 20, 50, 15));
}

}  // namespace
}  // namespace kestrio
