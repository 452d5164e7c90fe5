#include "imaging/filters/Resample.h"

#include <gtest/gtest.h>

#include "imaging/filters/FilterPictures.h"
#include "imaging/filters/Reference.h"

namespace kestrio {
namespace {

Mask slantedMask(QRect bounds) {
    Mask mask(bounds);
    for (int y = bounds.top(); y <= bounds.bottom(); ++y) {
        for (int x = 0; x < bounds.width(); ++x) {
            mask.row(y)[x] = static_cast<std::uint8_t>(std::clamp((x - y / 2) * 29, 0, 255));
        }
    }
    return mask;
}

TEST(DrawScaled, AgreesWithTheReference) {
    const Mask inner = slantedMask({5, 9, 70, 40}), reaching = slantedMask({-30, -3, 300, 90});
    struct Row {
        const char* name;
        QSize source;
        QRectF target;
        const Mask* clip = nullptr;
        double opacity = 1;
    };
    const Row rows[] = {
        {"near 1:1", {97, 61}, {3.25, 2.5, 93.8, 59.1}},
        {"near 1:1, masked", {97, 61}, {3, 2, 93, 59}, &inner},
        {"enlarged, reaching out", {13, 7}, {-40.5, -11, 200, 111.5}, &reaching, 0.6},
        {"shrunken", {300, 211}, {10.1, 10.9, 41.3, 17.6}, nullptr, 0.3},
        {"shrunken across only", {300, 20}, {1.5, 3, 20, 40}},
        {"thinner than a pixel", {50, 60}, {20.3, 5, 0.4, 50}},
        {"one pixel", {1, 1}, {-3.5, 4.25, 80, 20}},
        {"one row", {40, 1}, {2, 3, 31.7, 9}, &inner},
        {"fewer pixels than taps", {3, 2}, {4, 4, 2, 1.5}},
    };
    for (const Row& row : rows) {
        for (const QImage& source : {noise(row.source), screenshotPart({{900, 300}, row.source})}) {
            for (const QImage& below : {noise({110, 70}), screenshotPart({500, 150, 110, 70})}) {
                QImage drawn = below;
                drawScaled(drawn, source, {row.target, row.clip, row.opacity});
                const reference::Picture exact =
                    reference::drawScaled(reference::Picture(below), reference::Picture(source),
                                          row.target, row.clip, row.opacity);
                // Half a level each for the interpolated colour, for what its alpha lets through
                // and for the blended pixel.
                EXPECT_LE(reference::largestDifference(reference::Picture(drawn), exact), 1.51)
                    << row.name;
                EXPECT_TRUE(isPremultiplied(drawn)) << row.name;
                EXPECT_EQ(drawn.format(), below.format());
            }
        }
    }
}

TEST(DrawScaled, WholePixelsOneToOneComeThroughUnchanged) {
    const QImage source = screenshotPart({700, 300, 60, 40});
    QImage drawn(100, 100, QImage::Format_ARGB32_Premultiplied);
    drawn.fill(Qt::red);
    QImage expected = drawn;
    drawScaled(drawn, source, {QRectF(-7, 80, 60, 40)});
    QPainter(&expected).drawImage(-7, 80, source);
    EXPECT_EQ(drawn, expected);
    drawScaled(drawn, drawn, {QRectF(0, 0, 100, 100)});
    EXPECT_EQ(drawn, expected);
    // A hair wider is another column, which the source's pixels do not reach.
    drawScaled(drawn, source, {QRectF(-7, 80, 60 + 1e-10, 40)});
    EXPECT_EQ(drawn, expected);
}

TEST(DrawScaled, FlatColoursStayFlatAtAnyScale) {
    for (const QSizeF size : {QSizeF(63.7, 63.7), QSizeF(10.3, 500), QSizeF(64, 1.5)}) {
        QImage source(64, 64, QImage::Format_ARGB32_Premultiplied);
        source.fill(0xff254a81u);
        QImage drawn(64, 64, QImage::Format_ARGB32_Premultiplied);
        drawn.fill(0xff254a81u);
        const QImage before = drawn;
        drawScaled(drawn, source, {QRectF({-2.3, 1.9}, size), nullptr, 0.7});
        EXPECT_EQ(drawn, before) << size.width();
    }
}

TEST(DrawScaled, DegenerateTargetsDrawNothing) {
    const double nan = std::nan(""), infinity = std::numeric_limits<double>::infinity();
    const QImage before = noise({20, 20});
    const Mask empty;
    const ScaledDraw draws[] = {
        {QRectF()},
        {QRectF(2, 2, -5, 5)},
        {QRectF(nan, 0, 5, 5)},
        {QRectF(0, 0, 5, infinity)},
        {QRectF(20, 0, 9, 9)},
        {QRectF(0, 0, 9, 9), &empty},
        {QRectF(0, 0, 9, 9), nullptr, 0.0},
        {QRectF(0, 0, 9, 9), nullptr, nan},
    };
    for (const ScaledDraw& draw : draws) {
        QImage drawn = before;
        drawScaled(drawn, noise({8, 8}), draw);
        drawScaled(drawn, QImage(), {QRectF(0, 0, 9, 9)});
        EXPECT_EQ(drawn, before);
    }
}

TEST(DrawScaled, EnormousRatiosEnd) {
    QImage drawn(300, 200, QImage::Format_RGB32);
    drawn.fill(Qt::white);
    QImage tall(20, 100000, QImage::Format_RGB32);
    tall.fill(0xff102030u);
    drawScaled(drawn, tall, {QRectF(10, 10, 20, 50)});
    EXPECT_EQ(drawn.pixel(15, 30), 0xff102030u);
    drawScaled(drawn, screenshotPart({0, 0, 2, 2}), {QRectF(-1e9, -1e9, 2e9, 2e9)});
    drawScaled(drawn, tall, {QRectF(3, 3, 1e-9, 1e-9)});
    const QImage dot = noise({1, 1});
    const QImage wide = scaledTo(dot, {1000, 1000});
    EXPECT_EQ(wide.pixel(999, 500), dot.pixel(0, 0));
}

TEST(ScaledTo, KeepsFormatAndAgreesWithTheReference) {
    for (const QSize size : {QSize(40, 31), QSize(201, 99), QSize(1, 1), QSize(257, 3)}) {
        for (const QImage& source : {noise({77, 53}), screenshotPart({500, 150, 77, 53})}) {
            const QImage scaled = scaledTo(source, size);
            ASSERT_EQ(scaled.size(), size);
            EXPECT_EQ(scaled.format(), source.format());
            const reference::Picture exact = reference::drawScaled(
                reference::Picture(size.width(), size.height(), 4), reference::Picture(source),
                QRectF({0, 0}, QSizeF(size)), nullptr, 1);
            EXPECT_LE(reference::largestDifference(reference::Picture(scaled), exact), 0.51);
        }
    }
    EXPECT_TRUE(scaledTo(QImage(), {4, 4}).isNull());
    EXPECT_TRUE(scaledTo(noise({4, 4}), {0, 4}).isNull());
}

TEST(DrawScaled, ThreadsDoNotShowInTheResult) {
    const QImage source = noise({300, 400});
    EXPECT_TRUE(sameWithAnyThreads(noise({301, 403}), [&](QImage& bitmap) {
        drawScaled(bitmap, source, {QRectF(3.3, 2.2, 290.9, 380.1), nullptr, 0.8});
    }));
}

}  // namespace
}  // namespace kestrio
