#include "render/watermark/WatermarkPainter.h"
#include "render/watermark/WatermarkViewModel.h"

#include "imaging/codecs/ImageEncoder.h"
#include "render/RenderFixtures.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

QRect changedArea(const QImage& before, const QImage& after) {
    QRect area;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            if (before.pixel(x, y) != after.pixel(x, y)) area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

Image darkImage(QSize pixels, double density = 1) {
    QImage bitmap(pixels, QImage::Format_RGB32);
    bitmap.fill(QColor(20, 20, 20));
    return Image(bitmap, density);
}

WatermarkSettings imageMark() {
    QImage mark(20, 10, QImage::Format_RGB32);
    mark.fill(Qt::red);
    WatermarkSettings settings;
    settings.type = WatermarkType::image;
    settings.imageData = encodeImage(mark, ExportFormat::png);
    settings.opacity = 1;
    settings.scale = 0.2;
    return settings;
}

TEST(Watermark, PositionsOffsetInwardFromTheirNearerEdge) {
    WatermarkSettings settings;
    settings.offsetX = 20;
    settings.offsetY = 5;
    const double left[] = {20, 150, 280};
    const double top[] = {5, 90, 175};
    for (const auto& row : watermarkPositions) {
        settings.position = row.value;
        const int place = static_cast<int>(row.value);
        EXPECT_EQ(watermarkRect({400, 200}, {100, 20}, settings),
                  QRectF(left[place % 3], top[place / 3], 100, 20))
            << row.raw;
    }
}

TEST(Watermark, ImageMarksFillTheirRect) {
    const Image image = darkImage({800, 400}, 2);
    const WatermarkSettings settings = imageMark();
    const Image marked = paintWatermark(image, settings);
    EXPECT_EQ(marked.pointSize(), image.pointSize());
    // 0.2 of 400 points wide, half as tall, 20 points from the lower right corner, at density 2.
    EXPECT_EQ(changedArea(image.bitmap(), marked.bitmap()), QRect(600, 280, 160, 80));
    EXPECT_EQ(marked.bitmap().pixel(680, 320), qRgb(255, 0, 0));
}

TEST(Watermark, ScaleAndOpacityAreLimited) {
    WatermarkSettings settings = imageMark();
    settings.scale = 0.8;
    WatermarkSettings half = settings;
    half.scale = 0.5;
    const Image image = darkImage({200, 200});
    EXPECT_EQ(paintWatermark(image, settings).bitmap(), paintWatermark(image, half).bitmap());
    settings.opacity = 7;
    EXPECT_EQ(paintWatermark(image, settings).bitmap(), paintWatermark(image, half).bitmap());
}

TEST(Watermark, NothingToDrawLeavesThePicture) {
    const Image image = darkImage({200, 200});
    WatermarkSettings rows[4];
    rows[0].textContent.clear();
    rows[1].scale = -1;
    rows[2] = imageMark();
    rows[2].imageData = QByteArray("junk");
    rows[3] = imageMark();
    rows[3].imageData = std::nullopt;
    for (const WatermarkSettings& settings : rows) {
        EXPECT_EQ(paintWatermark(image, settings).bitmap(), image.bitmap());
    }
    EXPECT_TRUE(paintWatermark(Image(), {}).isNull());
}

TEST(Watermark, TextStandsInItsCornerAndKeepsItsShapeAtEveryDensity) {
    WatermarkSettings settings;
    settings.opacity = 1;
    const Image single = darkImage({600, 300});
    const Image doubled = darkImage({1200, 600}, 2);
    const QRect small = changedArea(single.bitmap(), paintWatermark(single, settings).bitmap());
    const QRect large = changedArea(doubled.bitmap(), paintWatermark(doubled, settings).bitmap());
    EXPECT_GT(small.left(), 300);
    EXPECT_LE(small.right(), 580);
    EXPECT_LE(small.bottom(), 280);
    EXPECT_GT(small.width(), small.height());
    EXPECT_NEAR(large.left(), small.left() * 2, 3);
    EXPECT_NEAR(large.width(), small.width() * 2, 4);
    settings.textContent = QStringLiteral("i");
    EXPECT_DOUBLE_EQ(textMarkSize(600, settings).width(), 600 * 0.15 * 0.5)
        << "at least half the box";
}

TEST(Watermark, IsUnderTheFramesAndOnlyWhenAsked) {
    CompositeRequest request = requestOf(testScreenshot(), bareStyle());
    const QImage plain = testComposer().compose(request).bitmap();
    request.watermark = imageMark();
    EXPECT_FALSE(changedArea(plain, testComposer().compose(request).bitmap()).isEmpty());
}

class WatermarkPresets : public testing::Test {
  protected:
    std::shared_ptr<MemoryUserDefaults> defaults = std::make_shared<MemoryUserDefaults>();
    std::shared_ptr<WatermarkService> service = std::make_shared<WatermarkService>(defaults);
};

TEST_F(WatermarkPresets, AreSavedOnceANameAndDeletedById) {
    service->savePreset(QStringLiteral("Logo"), imageMark());
    service->savePreset(QStringLiteral("logo"), {});
    EXPECT_THROW(service->savePreset(QStringLiteral("Logo"), {}), WatermarkError);
    ASSERT_EQ(service->presets().size(), 2u);
    EXPECT_EQ(service->presets()[0].settings, imageMark());
    EXPECT_THROW(service->deletePreset(QUuid::createUuid()), WatermarkError);
    service->deletePreset(service->presets()[0].id);
    EXPECT_EQ(service->presets()[0].name, QStringLiteral("logo"));
}

TEST_F(WatermarkPresets, UnreadableOnesAreNotOverwritten) {
    const QString key = QStringLiteral("com.kestrio.watermarkPresets");
    defaults->setData(key, "[broken");
    EXPECT_THROW(service->savePreset(QStringLiteral("New"), {}), WatermarkError);
    EXPECT_EQ(defaults->data(key), "[broken");
}

TEST_F(WatermarkPresets, TheViewModelTellsOutcomes) {
    WatermarkViewModel model(service);
    int presetChanges = 0;
    QObject::connect(&model, &WatermarkViewModel::presetsChanged, [&] { ++presetChanges; });
    model.savePreset(QStringLiteral("  "));
    EXPECT_EQ(model.errorMessage(), QStringLiteral("Preset name cannot be empty"));
    model.savePreset(QStringLiteral("Mine"));
    EXPECT_EQ(model.successMessage(), QStringLiteral("Preset 'Mine' saved"));
    EXPECT_TRUE(model.errorMessage().isEmpty());
    model.savePreset(QStringLiteral("Mine"));
    EXPECT_EQ(model.errorMessage(),
              QStringLiteral("Failed to save preset: Preset name already exists: Mine"));
    EXPECT_EQ(presetChanges, 1);
    const QUuid id = model.presets().front().id;
    model.selectPreset(id);
    model.deletePreset(id);
    EXPECT_EQ(model.successMessage(), QStringLiteral("Preset deleted"));
    EXPECT_FALSE(model.selectedPresetId());
    model.deletePreset(id);
    EXPECT_EQ(model.errorMessage(),
              QStringLiteral("Failed to delete preset: Watermark preset not found"));

    const Image image(testScreenshot());
    EXPECT_EQ(model.applied(image).bitmap(), image.bitmap());
    model.set_isEnabled(true);
    EXPECT_NE(model.applied(image).bitmap(), image.bitmap());
}

}  // namespace
}  // namespace kestrio
