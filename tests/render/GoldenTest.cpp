#include "core/AtomicFile.h"
#include "imaging/codecs/ImageDecoder.h"
#include "imaging/codecs/ImageEncoder.h"
#include "render/RenderFixtures.h"
#include "render/style/Theme.h"

#include <gtest/gtest.h>
#include <QFile>
#include <QPainter>

// Pictures that somebody looked at before they were kept. To renew them, run this test with
// KESTRIO_RENEW_GOLDEN=1 in the environment, look at what changed in tests/render/golden/, and
// commit what is right.

namespace kestrio {
namespace {

struct GoldenCase {
    const char* name;
    CompositeRequest (*make)();
};

CompositeRequest preset(const char* id) {
    CompositeRequest request =
        requestOf(testScreenshot({480, 300}), PresetTheme::find(QString::fromLatin1(id))->style());
    request.canvasState.canvasSize = {480, 320};
    return request;
}

// Every kind of annotation in every size, fill, weight and turn, on a light page whose lower right
// corner has something to blur.
CompositeRequest annotationSheet() {
    QImage page(920, 930, QImage::Format_RGB32);
    page.fill(QColor(0xf6, 0xf7, 0xf9));
    QPainter(&page).drawImage(680, 770, testScreenshot({220, 150}));
    CompositeRequest request = requestOf(page, bareStyle());
    QFile file(QStringLiteral(KESTRIO_SOURCE_DIR "/tests/render/golden/annotations.json"));
    if (file.open(QIODevice::ReadOnly)) {
        request.annotations = decodeJsonText<std::vector<AnyAnnotation>>(file.readAll());
    }
    return request;
}

const GoldenCase goldenCases[] = {
    {"annotations", annotationSheet},
    {"clean", [] { return preset("clean"); }},
    {"ocean", [] { return preset("ocean"); }},
    {"neon", [] { return preset("neon"); }},
    {"dreamy", [] { return preset("dreamy"); }},
    {"dotted", [] { return preset("dotted"); }},
    {"windows-vignette",
     [] {
         CompositeRequest request = preset("vintage");
         request.frameStyle = FrameStyle::windows;
         request.backdrop.overlay =
             OverlaySettings{OverlayType::vignette, 40, OverlayPosition::underlay};
         return request;
     }},
    {"stack2-waves",
     [] {
         CompositeRequest request = preset("lavender");
         request.frameStyle = FrameStyle::stack2;
         request.frameScale = 1.5;
         request.backdrop.pattern = PatternSettings{PatternType::waves, 0.6, 0.4, {1, 1, 1, 0.5}};
         return request;
     }},
    {"watermark-turned",
     [] {
         CompositeRequest request = preset("sunset");
         request.watermark = WatermarkSettings();
         request.watermark->textColor = {0.8, 0.1, 0.1, 1};
         request.watermark->scale = 0.3;
         request.canvasState.transform.rotation = 8;
         return request;
     }},
};

class Golden : public testing::TestWithParam<GoldenCase> {};

TEST_P(Golden, LooksAsItDidWhenItWasApproved) {
    const QImage picture = testComposer().compose(GetParam().make()).bitmap();
    const QString path = QStringLiteral(KESTRIO_SOURCE_DIR "/tests/render/golden/%1.png")
                             .arg(QString::fromLatin1(GetParam().name));
    if (qEnvironmentVariableIsSet("KESTRIO_RENEW_GOLDEN")) {
        replaceFile(path, encodeImage(picture, ExportFormat::png));
    }
    const QImage approved = loadImageFile(path);
    ASSERT_EQ(picture.size(), approved.size());
    EXPECT_LT(meanDifference(picture, approved), 0.5);
    // A mark that is missing on a large picture would not change the mean.
    constexpr int tile = 40;
    for (int y = 0; y < picture.height(); y += tile) {
        for (int x = 0; x < picture.width(); x += tile) {
            const QRect part = QRect(x, y, tile, tile) & picture.rect();
            EXPECT_LT(meanDifference(picture.copy(part), approved.copy(part)), 3)
                << "at " << x << "," << y;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, Golden, testing::ValuesIn(goldenCases), [](const auto& each) {
    std::string name = each.param.name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

}  // namespace
}  // namespace kestrio
