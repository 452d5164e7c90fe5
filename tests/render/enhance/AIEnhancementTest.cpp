#include "render/RenderFixtures.h"
#include "render/enhance/AIEnhancementError.h"
#include "render/enhance/AIEnhancementService.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

using Mode = AIEnhancementMode;

TEST(AIEnhancement, EachModeDoesItsOwn) {
    const Image before(testScreenshot({300, 200}), 2);
    for (const auto& row : aiEnhancementModes) {
        AIEnhancementService service;
        const bool doubles = row.value == Mode::upscale;
        const Image none = service.enhance(before, row.value, 0);
        EXPECT_EQ(none.bitmap() == before.bitmap(), !doubles) << row.raw;
        const Image after = service.enhance(before, row.value, 1);
        EXPECT_NE(after.bitmap(), before.bitmap()) << row.raw;
        EXPECT_EQ(after.pixelSize(), before.pixelSize() * (doubles ? 2 : 1)) << row.raw;
        EXPECT_EQ(after.pixelDensity(), 2) << row.raw;
        EXPECT_EQ(service.enhance(before, row.value, 9).bitmap(), after.bitmap()) << row.raw;
    }
}

TEST(AIEnhancement, TheAutomaticModeStretchesDullPictures) {
    QImage dull(64, 64, QImage::Format_RGB32);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x)
            dull.setPixel(x, y, x < 32 ? 0xff333333u : 0xffccccccu);
    }
    AIEnhancementService service;
    const QImage whole = service.enhance(Image(dull), Mode::automatic, 1).bitmap();
    EXPECT_EQ(whole.pixel(3, 3), 0xff000000u);
    EXPECT_EQ(whole.pixel(60, 3), 0xffffffffu);
    const QImage half = service.enhance(Image(dull), Mode::automatic, 0.5).bitmap();
    EXPECT_NEAR(qRed(half.pixel(3, 3)), 0x33 / 2.0, 0.51);
}

TEST(AIEnhancement, FailuresSayWhy) {
    AIEnhancementService service;
    EXPECT_THROW(service.enhance({}, Mode::sharpen, 0), AIEnhancementError);
    EXPECT_THROW(runUntilDone(service.enhanceInBackground({}, Mode::upscale, 1)),
                 AIEnhancementError);
}

TEST(AIEnhancement, TheFlowEndsWithoutItsServiceAndStopsWhenAsked) {
    const Image before(testScreenshot({300, 200}));
    auto service = std::make_unique<AIEnhancementService>();
    const Image direct = service->enhance(before, Mode::denoise, 0.7);
    auto pending = service->enhanceInBackground(before, Mode::denoise, 0.7);
    std::stop_source stop;
    auto stopped = service->enhanceInBackground(before, Mode::denoise, 0.7, stop.get_token());
    service.reset();
    stop.request_stop();
    EXPECT_EQ(runUntilDone(std::move(pending)).bitmap(), direct.bitmap());
    EXPECT_THROW(runUntilDone(std::move(stopped)), Cancelled);
}

}  // namespace
}  // namespace kestrio
