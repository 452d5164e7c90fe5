#include "render/preview/BlurredScreenshotPreviewLayer.h"

#include "annotation/blur/BlurEffectRenderer.h"

#include <gtest/gtest.h>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QPainter>
#include <QThreadPool>
#include <condition_variable>
#include <mutex>

namespace kestrio {
namespace {

/// Marks a corner red; says how often, and can hold the marking up.
class SlowWatermarks : public WatermarkServiceProtocol {
  public:
    Image apply(Image image, const WatermarkSettings&) override {
        std::unique_lock lock(mutex_);
        ++applied_;
        changed_.notify_all();
        changed_.wait(lock, [&] { return !isHeld_; });
        QImage bitmap = image.bitmap();
        bitmap.setPixel(1, 1, 0xffff0000);
        return {bitmap, image.pointSize()};
    }
    std::vector<WatermarkPreset> presets() override { return {}; }
    void savePreset(const QString&, const WatermarkSettings&) override {}
    void deletePreset(QUuid) override {}

    int applied() {
        const std::lock_guard lock(mutex_);
        return applied_;
    }
    void hold() {
        const std::lock_guard lock(mutex_);
        isHeld_ = true;
    }
    void release() {
        const std::lock_guard lock(mutex_);
        isHeld_ = false;
        changed_.notify_all();
    }

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    int applied_ = 0;
    bool isHeld_ = false;
};

BlurAnnotation blackSquare(double x) {
    BlurAnnotation annotation;
    annotation.bounds = {x, 0, 10, 10};
    annotation.blurType = BlurType::solid;
    annotation.intensity = 1;
    return annotation;
}

Image whiteImage() {
    QImage bitmap(80, 40, QImage::Format_RGB32);
    bitmap.fill(Qt::white);
    return Image(bitmap, 2.0);
}

struct Preview : testing::Test {
    std::shared_ptr<SlowWatermarks> watermarks = std::make_shared<SlowWatermarks>();
    std::unique_ptr<BlurredScreenshotPreviewLayer> layer =
        std::make_unique<BlurredScreenshotPreviewLayer>(watermarks);
    int published = 0;

    Preview() {
        QObject::connect(layer.get(), &BlurredScreenshotPreviewLayer::renderedResultChanged,
                         layer.get(), [this] { ++published; });
    }
    ~Preview() override {
        watermarks->release();
        settle();
    }

    /// Runs the loop until neither it nor the background has anything left.
    void settle() {
        for (int turn = 0; turn < 3; ++turn) {
            QCoreApplication::processEvents();
            backgroundPool()->waitForDone();
        }
        QCoreApplication::processEvents();
    }

    template <typename Condition>
    bool reaches(Condition condition) {
        QDeadlineTimer deadline(10000);
        while (!condition() && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        return condition();
    }

    QRgb shown(int x, int y) { return layer->presentResult()->bitmap().pixel(x, y); }
};

TEST_F(Preview, ShowsBlurOverTheWatermark) {
    layer->set_image(whiteImage());
    layer->set_watermarkEnabled(true);
    layer->set_annotations({blackSquare(20)});
    EXPECT_FALSE(layer->presentResult());
    settle();
    ASSERT_TRUE(layer->presentResult());
    EXPECT_EQ(shown(1, 1), 0xffff0000);
    EXPECT_EQ(shown(40, 19), 0xff000000);
    EXPECT_EQ(shown(39, 19), 0xffffffff);
    EXPECT_EQ(shown(40, 20), 0xffffffff);
    EXPECT_EQ(layer->presentResult()->pointSize(), QSizeF(40, 20));
    EXPECT_EQ(published, 1);

    layer->set_annotations({blackSquare(0)});
    settle();
    EXPECT_EQ(shown(1, 1), 0xff000000);
}

TEST_F(Preview, OneRequestIsRenderedOnce) {
    const Image image = whiteImage();
    layer->set_image(image);
    layer->set_watermarkEnabled(true);
    layer->set_annotations({blackSquare(20)});
    settle();
    layer->set_image(image);
    BlurAnnotation recoloured = blackSquare(20);
    recoloured.color = {1, 0, 0, 1};
    layer->set_annotations({recoloured});
    layer->set_renderedImageRect({5, 5, 400, 200});
    settle();
    EXPECT_EQ(watermarks->applied(), 1);
    EXPECT_TRUE(layer->presentResult());

    watermarks->hold();
    layer->set_annotations({blackSquare(5)});
    ASSERT_TRUE(reaches([&] { return watermarks->applied() == 2; }));
    layer->set_image(image);
    watermarks->release();
    settle();
    EXPECT_EQ(watermarks->applied(), 2);
    EXPECT_EQ(published, 2);
}

TEST_F(Preview, AChangeDropsWhatWasPending) {
    layer->set_image(whiteImage());
    layer->set_watermarkEnabled(true);
    watermarks->hold();
    layer->set_annotations({blackSquare(0)});
    ASSERT_TRUE(reaches([&] { return watermarks->applied() == 1; }));
    layer->set_annotations({blackSquare(20)});
    ASSERT_TRUE(reaches([&] { return watermarks->applied() == 2; }));
    watermarks->release();
    settle();
    EXPECT_EQ(published, 1);
    EXPECT_EQ(shown(1, 1), 0xffff0000);
    EXPECT_EQ(shown(41, 1), 0xff000000);
}

TEST_F(Preview, ShowsAResultOnlyForItsRequest) {
    const Image image = whiteImage();
    const std::vector<BlurAnnotation> annotations = {blackSquare(0)};
    layer->set_image(image);
    layer->set_annotations(annotations);
    settle();
    ASSERT_TRUE(layer->presentResult());

    WatermarkSettings fainter;
    fainter.opacity = 0.9;
    using Layer = BlurredScreenshotPreviewLayer;
    const std::vector<std::pair<std::function<void(Layer&)>, std::function<void(Layer&)>>> changes =
        {{[](Layer& l) { l.set_image(whiteImage()); }, [&](Layer& l) { l.set_image(image); }},
         {[](Layer& l) { l.set_image({}); }, [&](Layer& l) { l.set_image(image); }},
         {[](Layer& l) { l.set_annotations({}); },
          [&](Layer& l) { l.set_annotations(annotations); }},
         {[](Layer& l) { l.set_watermarkEnabled(true); },
          [](Layer& l) { l.set_watermarkEnabled(false); }},
         {[&](Layer& l) { l.set_watermarkSettings(fainter); },
          [](Layer& l) { l.set_watermarkSettings({}); }}};
    for (const auto& [change, changeBack] : changes) {
        change(*layer);
        EXPECT_FALSE(layer->presentResult());
        changeBack(*layer);
        EXPECT_TRUE(layer->presentResult());
        settle();
        EXPECT_EQ(published, 1);
    }
}

TEST_F(Preview, TheLayerMayGoWhileItsWorkIsPending) {
    layer->set_image(whiteImage());
    layer->set_watermarkEnabled(true);
    watermarks->hold();
    layer->set_annotations({blackSquare(0)});
    ASSERT_TRUE(reaches([&] { return watermarks->applied() == 1; }));
    layer.reset();
    watermarks->release();
    settle();
    EXPECT_EQ(published, 0);

    // Gone before its work has begun.
    layer = std::make_unique<BlurredScreenshotPreviewLayer>(watermarks);
    layer->set_image(whiteImage());
    layer->set_watermarkEnabled(true);
    layer.reset();
    settle();
    EXPECT_EQ(watermarks->applied(), 1);
}

}  // namespace
}  // namespace kestrio
