#include "render/enhance/AutoBeautify.h"
#include "render/enhance/AutoColorMatchService.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

const AutoColorMatchService service;

Image flat(QSize size, QRgb color, double pixelsPerPoint = 1) {
    QImage bitmap(size, QImage::Format_ARGB32_Premultiplied);
    bitmap.fill(color);
    return Image(bitmap, pixelsPerPoint);
}

/// Stripes from left to right: a tenth red, three tenths blue, six tenths green.
Image stripes() {
    QImage bitmap(400, 90, QImage::Format_RGB32);
    for (int x = 0; x < 400; ++x) {
        for (int y = 0; y < 90; ++y)
            bitmap.setPixel(x, y, x < 40 ? 0xffff0000u : x < 160 ? 0xff0000ffu : 0xff00ff00u);
    }
    return Image(bitmap);
}

TEST(AutoColorMatch, TellsColoursByTheirFrequency) {
    const CodableColor red{1, 0, 0, 1}, green{0, 1, 0, 1}, blue{0, 0, 1, 1};
    const CodableColor grey{0.5, 0.5, 0.5, 1};
    struct Case {
        const char* name;
        Image image;
        int count;
        std::vector<CodableColor> colors;
    };
    const Case cases[] = {
        {"no picture", {}, 3, {grey}},
        {"nothing but transparency", flat({50, 50}, 0), 3, {grey}},
        {"flat", flat({300, 200}, 0xff0000ff), 3, {blue}},
        {"one pixel", flat({1, 1}, 0xff00ff00), 1, {green}},
        {"two of three", stripes(), 2, {green, blue}},
        {"all three", stripes(), 3, {green, blue, red}},
        {"none asked for", stripes(), 0, {}},
    };
    for (const Case& each : cases)
        EXPECT_EQ(service.dominantColors(each.image, each.count), each.colors) << each.name;
}

TEST(AutoColorMatch, NearColoursShareABucket) {
    QImage bitmap(100, 100, QImage::Format_RGB32);
    // 40 rows of one colour; 60 rows of two that differ by less than an eighth.
    for (int y = 0; y < 100; ++y) {
        const QRgb color = y < 40 ? 0xffe0e0e0u : y < 70 ? 0xff404040u : 0xff484848u;
        std::fill_n(reinterpret_cast<QRgb*>(bitmap.scanLine(y)), 100, color);
    }
    const auto colors = service.dominantColors(Image(bitmap), 9);
    ASSERT_EQ(colors.size(), 2u);
    EXPECT_NEAR(colors[0].red, 0x40 / 255.0, 1e-9);
}

TEST(AutoBeautify, MeasuresFollowTheLongerSideInPoints) {
    struct Case {
        QSize pixels;
        double pixelsPerPoint, padding, cornerRadius;
    };
    const Case cases[] = {
        {{3000, 1000}, 1, 64, 20}, {{100, 100}, 1, 24, 8}, {{500, 800}, 1, 48, 12},
        {{1600, 200}, 2, 48, 12},  {{1, 1}, 4, 24, 8},
    };
    for (const Case& each : cases) {
        const auto style = autoBeautified(flat(each.pixels, 0xffff0000, each.pixelsPerPoint));
        EXPECT_DOUBLE_EQ(style.backdrop.padding, each.padding) << each.pixels.width();
        EXPECT_DOUBLE_EQ(style.mockup.cornerRadius, each.cornerRadius) << each.pixels.width();
        EXPECT_EQ(style.backdrop.type, BackdropType::solid);
        EXPECT_EQ(style.backdrop.solidColor, (CodableColor{1 * 0.7 + 0.15, 0.15, 0.15, 1}));
        EXPECT_EQ(style.backdrop.effects, BackdropEffects());
    }
}

}  // namespace
}  // namespace kestrio
