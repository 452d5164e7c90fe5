#include "annotation/blur/BlurEffectRenderer.h"

#include "annotation/blur/RenderGroup.h"
#include "imaging/filters/BlackCover.h"
#include "imaging/filters/GaussianBlur.h"
#include "imaging/filters/Mosaic.h"
#include "support/NoisePicture.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

constexpr QSize pixels(160, 120);
constexpr QRectF everything(0, 0, 160, 120);
const double undefined = std::nan("");

QImage noise(QImage::Format format = QImage::Format_ARGB32_Premultiplied) {
    return noisePicture(pixels, format);
}

BlurAnnotation blur(QRectF bounds, BlurType type, double intensity) {
    BlurAnnotation annotation;
    annotation.id = QUuid::createUuid();
    annotation.bounds = bounds;
    annotation.blurType = type;
    annotation.intensity = intensity;
    return annotation;
}

Image rendered(Image image, const std::vector<BlurAnnotation>& annotations) {
    const QSizeF size = image.pointSize();
    return BlurEffectRenderer::shared().apply(std::move(image), annotations, size,
                                              QRectF(QPointF(), size));
}

QImage applied(const QImage& bitmap, const std::vector<BlurAnnotation>& annotations) {
    return rendered(Image(bitmap), annotations).bitmap();
}

PixelRegion region(QRect rect) {
    return PixelRegion({rect}, QRect(QPoint(), pixels));
}

/// The smallest rectangle around all pixels that differ.
QRect changed(const QImage& before, const QImage& after) {
    QRect rect;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            if (before.pixel(x, y) != after.pixel(x, y)) rect |= QRect(x, y, 1, 1);
        }
    }
    return rect;
}

TEST(RenderGroups, AmountsAndBucketsFollowFromTheIntensity) {
    struct Row {
        BlurType type;
        double intensity, amount;
        int bucket;
    };
    for (const Row& row : std::vector<Row>{{BlurType::gaussian, 0, 5, 50},
                                           {BlurType::gaussian, 0.5, 17.5, 175},
                                           {BlurType::gaussian, 0.1234, 8.085, 80},
                                           {BlurType::gaussian, 1, 30, 300},
                                           {BlurType::gaussian, 2, 55, 550},
                                           {BlurType::gaussian, -3, 5, 50},
                                           {BlurType::gaussian, undefined, 5, 50},
                                           {BlurType::pixelate, 0, 4, 40},
                                           {BlurType::pixelate, 1, 32, 320},
                                           {BlurType::solid, 0, 0.7, 0},
                                           {BlurType::solid, -1, 0.7, 0},
                                           {BlurType::solid, undefined, 0.7, 0},
                                           {BlurType::solid, 0.5, 0.85, 50},
                                           {BlurType::solid, 1, 1, 100},
                                           {BlurType::solid, 4, 1, 400}}) {
        EXPECT_DOUBLE_EQ(blurAmount(row.type, row.intensity), row.amount) << row.intensity;
        EXPECT_EQ(renderGroupKey(blur(everything, row.type, row.intensity)),
                  (RenderGroupKey{row.type, row.bucket}));
    }
}

TEST(RenderGroups, OnePassForEachStrengthFromWeakToStrong) {
    std::vector<BlurAnnotation> annotations = {blur({1, 0, 1, 1}, BlurType::solid, 1),
                                               blur({2, 0, 1, 1}, BlurType::gaussian, 0.9),
                                               blur({3, 0, 1, 1}, BlurType::pixelate, 0.2),
                                               blur({4, 0, 1, 1}, BlurType::gaussian, 0.5),
                                               blur({5, 0, 1, 1}, BlurType::gaussian, 0.9),
                                               blur({6, 0, 1, 1}, BlurType::gaussian, 0.5001)};
    annotations[1].blurRadius = 99;
    std::vector<std::vector<double>> lefts;
    for (const RenderGroup& group : renderGroups(annotations)) {
        lefts.emplace_back();
        for (const QRectF& bounds : group.bounds)
            lefts.back().push_back(bounds.left());
    }
    EXPECT_EQ(lefts, (std::vector<std::vector<double>>{{4, 6}, {2, 5}, {3}, {1}}));
}

TEST(BlurEffectRenderer, EachKindIsItsFilterOnTheTouchedPixels) {
    for (const auto format : {QImage::Format_ARGB32_Premultiplied, QImage::Format_RGB32}) {
        const QImage before = noise(format);
        const QRectF bounds(20.4, 30.6, 50, 40.5);
        const QRect touched(20, 30, 51, 42);
        QImage expected = before;
        gaussianBlur(expected, 17.5, region(touched));
        EXPECT_EQ(applied(before, {blur(bounds, BlurType::gaussian, 0.5)}), expected);
        expected = before;
        mosaic(expected, {18, {80, 60}}, region(touched));
        EXPECT_EQ(applied(before, {blur(bounds, BlurType::pixelate, 0.5)}), expected);
        expected = before;
        coverWithBlack(expected, 0.85, region(touched));
        EXPECT_EQ(applied(before, {blur(bounds, BlurType::solid, 0.5)}), expected);
        for (const auto& row : blurTypes) {
            const QImage after = applied(before, {blur(bounds, row.value, 0.5)});
            EXPECT_EQ(changed(before, after), touched) << row.raw;
            EXPECT_EQ(after.format(), format);
        }
    }
}

TEST(BlurEffectRenderer, CanvasAndContentScaleRectanglesAndStrength) {
    // 160 x 120 pixels on 80 x 40 points; the canvas of 40 x 40 fills points (10, 5) to (70, 35).
    const Image image(noise(), QSizeF(80, 40));
    const QImage after =
        BlurEffectRenderer::shared()
            .apply(image, {blur({10, 10, 20, 8}, BlurType::gaussian, 0)}, {40, 40}, {10, 5, 60, 30})
            .bitmap();
    const QRect touched(QPoint(50, 37), QPoint(109, 55));
    QImage expected = image.bitmap();
    gaussianBlur(expected, (2 + 3) / 2.0 * (60 / 40.0 + 30 / 40.0) / 2 * 5, region(touched));
    EXPECT_EQ(after, expected);

    // A canvas shown small would make cells of 1 pixel.
    const QImage small = BlurEffectRenderer::shared()
                             .apply(Image(noise()), {blur({0, 0, 640, 480}, BlurType::pixelate, 0)},
                                    {640, 480}, everything)
                             .bitmap();
    expected = noise();
    mosaic(expected, {4, {80, 60}}, region(QRect(QPoint(), pixels)));
    EXPECT_EQ(small, expected);
}

TEST(BlurEffectRenderer, SolidLeavesNothingOfWhatItCovers) {
    const QRect covered(30, 20, 60, 50);
    const QImage one = noise();
    QImage other = one;
    for (int y = covered.top(); y <= covered.bottom(); ++y) {
        for (int x = covered.left(); x <= covered.right(); ++x)
            other.setPixel(x, y, (x + y) % 2 ? 0 : 0xffffffff);
    }
    const std::vector<BlurAnnotation> solid = {blur(covered, BlurType::solid, 1)};
    const QImage result = applied(one, solid);
    EXPECT_EQ(result, applied(other, solid));
    EXPECT_EQ(result.pixel(covered.center()), 0xff000000);
}

TEST(BlurEffectRenderer, OverlapsOfOneStrengthCountOnceAndLaterGroupsLieAbove) {
    const QRectF first(10, 10, 60, 60), second(40, 40, 60, 60);
    QImage expected = noise();
    coverWithBlack(expected, 0.7,
                   PixelRegion({first.toRect(), second.toRect()}, QRect(QPoint(), pixels)));
    EXPECT_EQ(applied(noise(), {blur(first, BlurType::solid, 0), blur(second, BlurType::solid, 0)}),
              expected);

    expected = noise();
    gaussianBlur(expected, 5, region(second.toRect()));
    gaussianBlur(expected, 17.5, region(first.toRect()));
    mosaic(expected, {18, {80, 60}}, region(second.toRect()));
    EXPECT_EQ(applied(noise(),
                      {blur(second, BlurType::pixelate, 0.5), blur(first, BlurType::gaussian, 0.5),
                       blur(second, BlurType::gaussian, 0)}),
              expected);
}

TEST(BlurEffectRenderer, NothingToDoGivesTheVeryPicture) {
    const Image image(noise());
    const auto same = [&](const std::vector<BlurAnnotation>& annotations, QSizeF canvas,
                          QRectF content) {
        return BlurEffectRenderer::shared()
                   .apply(image, annotations, canvas, content)
                   .bitmap()
                   .cacheKey() == image.bitmap().cacheKey();
    };
    const std::vector<BlurAnnotation> whole = {blur(everything, BlurType::solid, 1)};
    EXPECT_TRUE(same({}, pixels, everything));
    for (const QSizeF& canvas :
         {QSizeF(0, 120), QSizeF(160, -1), QSizeF(undefined, 120), QSizeF(160, HUGE_VAL)}) {
        EXPECT_TRUE(same(whole, canvas, everything)) << canvas.width();
    }
    EXPECT_TRUE(same(whole, pixels, {0, 0, undefined, 120}));
    EXPECT_TRUE(rendered({}, whole).isNull());
    std::vector<BlurAnnotation> damaged;
    for (const QRectF& bounds :
         {QRectF(10, 10, 0, 20), QRectF(10, 10, 20, -5), QRectF(undefined, 1, 9, 9),
          QRectF(1, 1, HUGE_VAL, 9), QRectF(160, 0, 50, 50), QRectF(-50, 0, 50, 50),
          QRectF(0, 1e300, 1e300, 1e300)}) {
        damaged.push_back(blur(bounds, BlurType::gaussian, 0.5));
        EXPECT_TRUE(same({damaged.back()}, pixels, everything)) << bounds.x();
    }
    damaged.push_back(blur({10, 10, 20, 20}, BlurType::gaussian, 0.5));
    EXPECT_EQ(applied(noise(), damaged), applied(noise(), {damaged.back()}));
}

TEST(BlurEffectRenderer, WildDocumentsAreRenderedAllTheSame) {
    for (const auto& row : blurTypes) {
        for (double intensity : {1e300, -1e300, undefined, HUGE_VAL}) {
            const QRectF wild(-1e300, -1e300, HUGE_VAL / 2, 1e301);
            const QRectF wide(-1e9, 50, 2e9, 10);
            const QImage after = applied(
                noise(), {blur(wild, row.value, intensity), blur(wide, row.value, intensity)});
            EXPECT_EQ(changed(noise(), after), QRect(0, 50, 160, 10)) << intensity;
        }
    }
    const QImage enormous = BlurEffectRenderer::shared()
                                .apply(Image(noise()), {blur({0, 0, 1, 1}, BlurType::gaussian, 1)},
                                       {1, 1}, {-1e9, -1e9, 2e9, 2e9})
                                .bitmap();
    EXPECT_EQ(changed(noise(), enormous), QRect(QPoint(), pixels));
}

TEST(BlurEffectRenderer, ManyAreOnePassAndSharedPicturesStayAsTheyAre) {
    std::vector<BlurAnnotation> many;
    std::vector<QRect> rects;
    for (int i = 0; i < 2000; ++i) {
        rects.emplace_back(i * 7 % 150, i * 11 % 110, 1 + i % 9, 1 + i % 5);
        many.push_back(blur(rects.back(), BlurType::gaussian, 0.25));
    }
    const QImage shared = noise();
    QImage expected = noise();
    gaussianBlur(expected, 11.25, PixelRegion(rects, shared.rect()));
    EXPECT_EQ(applied(shared, many), expected);
    EXPECT_EQ(shared, noise());

    Image givenUp(noise());
    const uchar* const memory = givenUp.bitmap().constBits();
    const Image result = rendered(std::move(givenUp), many);
    EXPECT_EQ(result.bitmap().constBits(), memory);
    EXPECT_EQ(result.bitmap(), expected);
}

TEST(BlurEffectRenderer, StopsBetweenPasses) {
    std::stop_source stop;
    stop.request_stop();
    const Image result =
        BlurEffectRenderer::shared().apply(Image(noise()), {blur(everything, BlurType::solid, 1)},
                                           pixels, everything, stop.get_token());
    EXPECT_EQ(result.bitmap(), noise());
}

}  // namespace
}  // namespace kestrio
