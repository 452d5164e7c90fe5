// The filters that improve a picture: tones, sharpening, noise reduction, doubling, dissolving.
#include <gtest/gtest.h>

#include "imaging/filters/Denoise.h"
#include "imaging/filters/Dissolve.h"
#include "imaging/filters/FilterPictures.h"
#include "imaging/filters/LanczosDoubling.h"
#include "imaging/filters/Reference.h"
#include "imaging/filters/Sharpen.h"
#include "imaging/filters/ToneAdjust.h"

namespace kestrio {
namespace {

using reference::Picture;

struct Filter {
    const char* name;
    void (*fast)(QImage&);
    Picture (*exact)(const Picture&);
    double tolerance;
};

// Blurred levels are rounded to whole ones, and sharpening multiplies what that leaves.
const Filter filters[] = {
    {"contrast", [](QImage& b) { adjustContrast(b, 1.15); },
     [](const Picture& p) { return reference::mapTones(p, 1.15, 0.5 - 0.5 * 1.15); }, 0.51},
    {"stretch",
     [](QImage& b) {
         stretchTones(b, {0.2, 0.8});
     },
     [](const Picture& p) { return reference::mapTones(p, 1 / 0.6, -0.2 / 0.6); }, 0.51},
    {"vibrance", [](QImage& b) { adjustVibrance(b, 0.7); },
     [](const Picture& p) { return reference::adjustVibrance(p, 0.7); }, 0.51},
    {"sharpen", [](QImage& b) { sharpenLuminance(b, 1.2); },
     [](const Picture& p) { return reference::sharpenLuminance(p, 1.2, 0); }, 2},
    {"sharpen edges", [](QImage& b) { sharpenLuminance(b, 2, 0.05); },
     [](const Picture& p) { return reference::sharpenLuminance(p, 2, 0.05); }, 3},
    {"denoise", [](QImage& b) { reduceNoise(b, 0.05); },
     [](const Picture& p) { return reference::reduceNoise(p, 0.05); }, 0.51},
    {"denoise much", [](QImage& b) { reduceNoise(b, 1); },
     [](const Picture& p) { return reference::reduceNoise(p, 1); }, 0.51},
    {"dissolve", [](QImage& b) { dissolve(b, b.mirrored(), 0.3); },
     [](const Picture& p) { return reference::dissolveUpsideDown(p, 0.3); }, 0.51},
    {"double", [](QImage& b) { b = doubledByLanczos(b); }, reference::doubledByLanczos, 0.51},
};

TEST(EnhancingFilters, AgreeWithTheirReferences) {
    for (const QSize size : {QSize(75, 41), QSize(2, 9), QSize(1, 1)}) {
        for (const auto& [pictureName, before] : filterPictures(size)) {
            for (const Filter& filter : filters) {
                QImage after = before;
                filter.fast(after);
                EXPECT_LE(
                    reference::largestDifference(Picture(after), filter.exact(Picture(before))),
                    filter.tolerance)
                    << filter.name << ", " << pictureName << ", width " << size.width();
                EXPECT_TRUE(isPremultiplied(after)) << filter.name;
                EXPECT_EQ(after.format(), before.format()) << filter.name;
            }
        }
    }
}

TEST(EnhancingFilters, BandsNeverShow) {
    const QImage wide = noise({1201, 203});
    for (const Filter& filter : filters)
        EXPECT_TRUE(sameWithAnyThreads(wide, filter.fast)) << filter.name;
}

TEST(EnhancingFilters, FlatPicturesStayAndOddAmountsAreSafe) {
    QImage flat(40, 30, QImage::Format_RGB32);
    flat.fill(0xff30a0e0u);
    for (double amount : {0.0, -1.0, 1.0, 1e300, std::nan("")}) {
        QImage sharpened = flat, denoised = flat;
        sharpenLuminance(sharpened, amount, amount);
        reduceNoise(denoised, amount);
        EXPECT_EQ(sharpened, flat) << amount;
        EXPECT_EQ(denoised, flat) << amount;
        QImage wild = noise({33, 9});
        adjustContrast(wild, amount);
        adjustVibrance(wild, amount);
        stretchTones(wild, {amount, amount + 0.1});
        EXPECT_TRUE(isPremultiplied(wild)) << amount;
    }
    EXPECT_TRUE(doubledByLanczos({}).isNull());
}

TEST(UsedTones, LeavesOutFewPixelsAndBoundsTheGain) {
    struct Case {
        const char* name;
        int dark, bright;  // levels of all pixels
        int outliers;      // of 10000 pixels, black and white each
        ToneRange tones;
    };
    const Case cases[] = {
        {"a dull picture", 51, 204, 0, {0.2, 0.8}}, {"few outliers", 51, 204, 50, {0.2, 0.8}},
        {"many outliers", 51, 204, 51, {0, 1}},     {"a narrow range", 120, 140, 0, {0.25, 0.75}},
        {"nearly flat", 200, 210, 0, {0, 1}},
    };
    for (const Case& each : cases) {
        QImage bitmap(100, 100, QImage::Format_ARGB32_Premultiplied);
        for (int i = 0; i < 10000; ++i) {
            int level = i % 2 ? each.dark : each.bright;
            if (i < each.outliers) level = 0;
            if (i >= 10000 - each.outliers) level = 255;
            bitmap.setPixel(i % 100, i / 100, qRgb(level, level, level));
        }
        const ToneRange tones = usedTones(bitmap);
        EXPECT_DOUBLE_EQ(tones.black, each.tones.black) << each.name;
        EXPECT_DOUBLE_EQ(tones.white, each.tones.white) << each.name;
    }
    QImage clear(50, 50, QImage::Format_ARGB32_Premultiplied);
    clear.fill(Qt::transparent);
    EXPECT_EQ(usedTones(clear), ToneRange());
}

}  // namespace
}  // namespace kestrio
