#include "render/ImageComposer.h"

#include "core/Cancelled.h"
#include "core/Parallel.h"
#include "imaging/ExportError.h"
#include "render/RenderFixtures.h"
#include "render/style/GradientPreset.h"
#include "render/style/Theme.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

QImage composed(const CompositeRequest& request) {
    return testComposer().compose(request).bitmap();
}

TEST(ImageComposer, ABareStyleGivesTheScreenshotBack) {
    const QImage screenshot = testScreenshot();
    EXPECT_EQ(composed(requestOf(screenshot, bareStyle())), screenshot);
}

TEST(ImageComposer, DensityMakesTheOutputAndTheStyleLarger) {
    CompositeRequest request = requestOf(testScreenshot({480, 300}));
    request.screenshot = Image(request.screenshot.bitmap(), 2.0);
    request.canvasState.canvasSize = {240, 150};
    request.backdrop.padding = 30;
    const QImage output = composed(request);
    EXPECT_EQ(output.size(), QSize(480, 300));
    EXPECT_EQ(output.pixel(59, 150), output.pixel(0, 0)) << "60 pixels of padding at the side";
    EXPECT_NE(output.pixel(100, 150), output.pixel(0, 0));
}

TEST(ImageComposer, PaddingOutOfRangeIsClamped) {
    struct Row {
        double padding, acts;
    };
    for (const Row& row : {Row{500, 100}, Row{-20, 0}}) {
        CompositeRequest wild = requestOf(testScreenshot({480, 300}));
        wild.backdrop.padding = row.padding;
        CompositeRequest tame = wild;
        tame.backdrop.padding = row.acts;
        EXPECT_EQ(composed(wild), composed(tame));
    }
}

TEST(ImageComposer, WithoutRoomOnlyTheBackdropShows) {
    CompositeRequest request = requestOf(testScreenshot({100, 80}));
    request.backdrop.padding = 100;
    const QImage output = composed(request);
    EXPECT_EQ(output.pixel(50, 40), output.pixel(0, 0));
    EXPECT_EQ(output.pixelColor(0, 0), QColor(51, 51, 77));
}

TEST(ImageComposer, ImpossibleRequestsAreRefused) {
    CompositeRequest request = requestOf(testScreenshot());
    for (const QSizeF& canvas : {QSizeF(0, 10), QSizeF(std::nan(""), 10), QSizeF(1e9, 1e9)}) {
        request.canvasState.canvasSize = canvas;
        EXPECT_THROW(testComposer().compose(request), ExportError);
    }
    EXPECT_THROW(testComposer().compose(CompositeRequest()), ExportError);
    std::stop_source stop;
    stop.request_stop();
    EXPECT_THROW(testComposer().compose(requestOf(testScreenshot()), stop.get_token()), Cancelled);
}

TEST(ImageComposer, SameBytesAtEveryRunAndWithAnyNumberOfThreads) {
    CompositeRequest request =
        requestOf(testScreenshot({333, 217}), PresetTheme::find(QStringLiteral("dreamy"))->style());
    request.backdrop.pattern = PatternSettings{PatternType::waves, 1, 0.5, {0, 0, 0, 0.5}};
    request.backdrop.overlay = OverlaySettings{OverlayType::vignette, 60, OverlayPosition::overlay};
    request.frameStyle = FrameStyle::arc;
    request.canvasState.transform.rotation = 12;
    const QImage first = composed(request);
    for (int threads : {1, 2, 3, 8}) {
        setParallelThreadLimit(threads);
        EXPECT_EQ(composed(request), first) << threads;
    }
    setParallelThreadLimit(0);
}

TEST(ImageComposer, RotationTurnsClockwiseAndFourQuartersGiveThePictureBack) {
    const QImage picture = testScreenshot({300, 200});
    EXPECT_EQ(turned(picture, 360), picture);
    EXPECT_EQ(turned(picture, 90).size(), QSize(200, 300));
    EXPECT_EQ(turned(picture, 90).pixel(199, 0), picture.pixel(0, 0))
        << "top left comes to top right";
    QImage again = picture;
    for (int i = 0; i < 4; ++i)
        again = turned(again, 90);
    EXPECT_EQ(again, picture);
    EXPECT_EQ(turned(picture, -90), turned(picture, 270));
    EXPECT_EQ(turned(picture, 45).size(), QSize(354, 354));
    EXPECT_EQ(qAlpha(turned(picture, 45).pixel(0, 0)), 0);
}

TEST(ImageComposer, FillsFallBackToGrey) {
    struct Row {
        const char* what;
        void (*change)(BackdropSettings&);
        QColor corner;
    };
    const QColor grey = QColor::fromRgbF(0.5f, 0.5f, 0.5f);
    const Row rows[] = {
        {"no colour",
         [](BackdropSettings& b) {
             b.solidColor = std::nullopt;
             b.opacity = 0;
         },
         grey},
        {"unknown gradient",
         [](BackdropSettings& b) {
             b.type = BackdropType::gradient;
             b.gradientPreset = QStringLiteral("nowhere");
         },
         grey},
        {"no picture", [](BackdropSettings& b) { b.type = BackdropType::image; }, grey},
        {"bad picture",
         [](BackdropSettings& b) {
             b.type = BackdropType::image;
             b.imageSettings =
                 ImageBackdropSettings{QByteArray("junk"), {}, 0, 100, ImageScaleFit::fill};
         },
         grey},
        {"one custom colour falls back to the preset",
         [](BackdropSettings& b) {
             b.type = BackdropType::gradient;
             b.customGradientColors = {{{0, 1, 0, 1}}};
             b.gradientPreset = QStringLiteral("ocean");
         },
         QColor(0, 128, 255)},
        {"custom colours win",
         [](BackdropSettings& b) {
             b.type = BackdropType::gradient;
             b.customGradientColors = {{{0, 1, 0, 1}, {0, 0, 1, 1}}};
             b.gradientPreset = QStringLiteral("ocean");
         },
         QColor(0, 255, 0)},
    };
    for (const Row& row : rows) {
        BackdropSettings backdrop;
        row.change(backdrop);
        const QImage image = testComposer().renderBackdrop(backdrop, {64, 64}, 1).bitmap();
        const QColor corner = image.pixelColor(0, 0);
        EXPECT_LE(std::abs(corner.red() - row.corner.red()), 3) << row.what;
        EXPECT_LE(std::abs(corner.green() - row.corner.green()), 3) << row.what;
        EXPECT_LE(std::abs(corner.blue() - row.corner.blue()), 3) << row.what;
        EXPECT_EQ(corner.alpha(), 255) << row.what;
    }
}

TEST(ImageComposer, NeutralEffectsLeaveTheVeryPicture) {
    const Image image(testScreenshot());
    EXPECT_EQ(testComposer().applyEffects(image, {0, 0, 100}, 2).bitmap().constBits(),
              image.bitmap().constBits());
    const QImage grey = testComposer().applyEffects(image, {0, 0, -5}, 2).bitmap();
    EXPECT_TRUE(grey.pixelColor(10, 10).saturation() <= 2);
    EXPECT_EQ(testComposer().applyEffects(image, {50, 400, 900}, 2).bitmap(),
              testComposer().applyEffects(image, {10, 100, 200}, 2).bitmap());
}

TEST(ImageComposer, OverlaysLieInFrontOrBehind) {
    CompositeRequest request = requestOf(testScreenshot());
    request.backdrop.overlay =
        OverlaySettings{OverlayType::naturalShadow, 100, OverlayPosition::overlay};
    const QRgb plain = request.screenshot.bitmap().pixel(120, 2);
    request.backdrop.padding = 0;
    request.mockup = {0, false, ShadowIntensity::low, LightSource::top};
    EXPECT_LT(qRed(composed(request).pixel(120, 2)), qRed(plain) / 2);
    request.backdrop.overlay->position = OverlayPosition::underlay;
    EXPECT_EQ(composed(request).pixel(120, 2), plain);
}

TEST(ImageComposer, CornerSettingsAreCutInsideTheirOuterFigure) {
    struct Row {
        double setting;
        int transparentDiagonal;  // pixels of the corner's diagonal that are not drawn
    };
    // A circle of radius r leaves r * (1 - 1 / sqrt 2) of the diagonal free on each axis.
    for (const Row& row : {Row{0, 0}, Row{4, 0}, Row{24, 5}, Row{48, 12}, Row{100, 12}}) {
        EditorStyleSettings style = bareStyle();
        style.mockup.cornerRadius = row.setting;
        const QImage output = composed(requestOf(testScreenshot(), style));
        int free = 0;
        while (qAlpha(output.pixel(free, free)) == 0)
            ++free;
        EXPECT_EQ(free, row.transparentDiagonal) << row.setting;
    }
}

}  // namespace
}  // namespace kestrio
