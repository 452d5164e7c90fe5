#include "render/backdrop/BackdropRenderer.h"
#include "render/backdrop/Grain.h"
#include "render/backdrop/LinearGradient.h"
#include "render/backdrop/OverlayPainter.h"
#include "render/backdrop/PatternPainter.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

QImage blank(QSize size, QColor color = Qt::transparent) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    return image;
}

QImage patterned(const PatternSettings& pattern, QSize size = {120, 90}, double scale = 1) {
    QImage image = blank(size);
    drawPattern(image, pattern, scale);
    return image;
}

TEST(Grain, TheStreamIsSplitMix64FromItsSeed) {
    using namespace RenderingConstants::Noise;
    // The published first output of SplitMix64 for the seed 1234567 is 6457827717110365317.
    EXPECT_EQ(Generator(1234567).next().normalizedX, 6457827717110365317.0 * 0x1p-64);
    EXPECT_EQ(Generator(backdropSeed).next(), Generator(backdropSeed).next());
    EXPECT_NE(Generator(backdropSeed).next(), Generator(patternSeed).next());
}

TEST(Grain, CountsFollowAreaAndStrengthUpToTheirLimits) {
    struct Row {
        QSize size;
        double intensity, scale;
        int mostTouched;
        bool isEmpty;
    };
    // Each grain of a point touches at most four pixels of a 1:1 picture.
    for (const Row& row : {Row{{100, 100}, 1, 1, 400, false}, Row{{9, 9}, 1, 1, 0, true},
                           Row{{100, 100}, 0, 1, 0, true}}) {
        QImage image = blank(row.size);
        drawPatternGrain(image, {0, 0, 0, 1}, row.intensity, row.scale);
        int touched = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                touched += qAlpha(image.pixel(x, y)) > 0;
        }
        EXPECT_LE(touched, row.mostTouched);
        EXPECT_EQ(touched == 0, row.isEmpty);
    }
}

TEST(Grain, LightAndDarkBalanceOnGrey) {
    QImage image = blank({200, 200}, QColor(128, 128, 128));
    drawBackdropGrain(image, 1, 1);
    int lighter = 0, darker = 0;
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 200; ++x) {
            const int red = qRed(image.pixel(x, y));
            lighter += red > 128;
            darker += red < 128;
            EXPECT_EQ(qAlpha(image.pixel(x, y)), 255);
        }
    }
    EXPECT_GT(lighter, 500);
    EXPECT_NEAR(double(lighter) / darker, 1, 0.25);
}

TEST(Patterns, EachDrawsSomethingOfItsOwn) {
    std::vector<QImage> seen;
    for (const auto& row : patternTypes) {
        const QImage image = patterned({row.value, 1, 0.5, {1, 0, 0, 1}});
        if (row.value == PatternType::none) {
            EXPECT_EQ(image, blank(image.size()));
        } else {
            EXPECT_NE(image, blank(image.size())) << row.raw;
        }
        EXPECT_EQ(std::count(seen.begin(), seen.end(), image), 0) << row.raw;
        seen.push_back(image);
    }
}

TEST(Patterns, SettingsAreClamped) {
    const CodableColor ink{0, 0, 0, 0.5};
    EXPECT_EQ(patterned({PatternType::grid, 2, 1, ink}), patterned({PatternType::grid, 1, 1, ink}));
    EXPECT_EQ(patterned({PatternType::grid, 0, 1, ink}), blank({120, 90}));
    EXPECT_EQ(patterned({PatternType::grid, 1, 7, ink}), patterned({PatternType::grid, 1, 1, ink}));
    EXPECT_EQ(patterned({PatternType::grid, 1, -3, ink}),
              patterned({PatternType::grid, 1, 0, ink}));
    EXPECT_NE(patterned({PatternType::grid, 1, 0, ink}), blank({120, 90}));
}

TEST(Patterns, GridLinesStandEveryTwentyPointsAtAnyScale) {
    for (double scale : {1.0, 2.0}) {
        const int pitch = static_cast<int>(20 * scale);
        const QImage image = patterned({PatternType::grid, 1, 1, {0, 0, 0, 1}}, {200, 200}, scale);
        EXPECT_EQ(qAlpha(image.pixel(pitch, pitch / 2)), 255);
        EXPECT_EQ(qAlpha(image.pixel(pitch / 2, pitch / 2)), 0);
        EXPECT_EQ(qAlpha(image.pixel(3 * pitch, pitch / 2)), 255);
    }
}

TEST(Overlays, ShadesRunAsTheirStopsSay) {
    struct Row {
        OverlayType type;
        QPoint place;
        int alpha;
        bool isLight;
    };
    const Row rows[] = {
        {OverlayType::diagonalShadow, {0, 0}, 254, false},
        {OverlayType::diagonalShadow, {199, 99}, 0, false},
        {OverlayType::naturalShadow, {100, 0}, 202, false},
        {OverlayType::naturalShadow, {7, 50}, 1, false},
        {OverlayType::naturalShadow, {100, 99}, 76, false},
        {OverlayType::softGlow, {100, 50}, 127, true},
        {OverlayType::softGlow, {199, 50}, 1, true},
        {OverlayType::vignette, {100, 50}, 2, false},
        {OverlayType::vignette, {198, 50}, 252, false},
        {OverlayType::vignette, {0, 0}, 0, false},
    };
    for (const Row& row : rows) {
        const QRgb pixel = renderOverlayImage(row.type, {200, 100}, 100).pixel(row.place);
        EXPECT_NEAR(qAlpha(pixel), row.alpha, 2) << int(row.type) << " " << row.place.x();
        EXPECT_EQ(qRed(pixel), row.isLight ? qAlpha(pixel) : 0) << "premultiplied white or black";
    }
    EXPECT_EQ(renderOverlayImage(OverlayType::vignette, {20, 10}, 150),
              renderOverlayImage(OverlayType::vignette, {20, 10}, 100));
    EXPECT_EQ(renderOverlayImage(OverlayType::none, {20, 10}, 100), blank({20, 10}));
    EXPECT_EQ(renderOverlayImage(OverlayType::vignette, {20, 10}, -5), blank({20, 10}));
}

TEST(LinearGradient, MatchesThePlainFormula) {
    const LinearGradient gradient{{{1, 0, 0, 1}, {0, 1, 0, 0.5}, {0, 0, 1, 1}}, {10, 5}, {90, 45}};
    QImage image = blank({101, 53});
    fillLinearGradient(image, gradient);
    for (int y = 0; y < image.height(); y += 4) {
        for (int x = 0; x < image.width(); x += 3) {
            const double along = ((x + 0.5 - 10) * 80 + (y + 0.5 - 5) * 40) / (80.0 * 80 + 40 * 40);
            const double stop = std::clamp(along, 0.0, 1.0) * 2;
            const double alpha = 1 - 0.5 * (1 - std::abs(stop - 1));
            const double red = std::max(0.0, 1 - stop);
            const double green = 0.5 * (1 - std::abs(stop - 1));
            const QRgb pixel = reinterpret_cast<const QRgb*>(image.constScanLine(y))[x];
            EXPECT_NEAR(qAlpha(pixel), alpha * 255, 1);
            EXPECT_NEAR(qRed(pixel), red * 255, 1);
            EXPECT_NEAR(qGreen(pixel), green * 255, 1);
        }
    }
}

TEST(ImageFill, PlacesPicturesBySide) {
    const QRectF wide(0, 0, 200, 100);
    EXPECT_EQ(placedImage({100, 100}, wide, ImageScaleFit::fill), QRectF(0, -50, 200, 200));
    EXPECT_EQ(placedImage({100, 100}, wide, ImageScaleFit::fit), QRectF(50, 0, 100, 100));
    EXPECT_EQ(placedImage({400, 100}, wide, ImageScaleFit::fill), QRectF(-100, 0, 400, 100));
    EXPECT_EQ(placedImage({400, 100}, wide, ImageScaleFit::fit), QRectF(0, 25, 200, 50));
    EXPECT_EQ(placedImage({7, 3}, wide, ImageScaleFit::stretch), wide);
}

}  // namespace
}  // namespace kestrio
