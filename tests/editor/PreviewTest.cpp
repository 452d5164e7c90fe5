#include "editor/WindowFixture.h"
#include "editor/canvas/AnnotationLayer.h"
#include "editor/canvas/PreviewRenderer.h"

namespace kestrio {
namespace {

double meanDifference(const QImage& shown, const QImage& exported) {
    const QImage a = shown.convertToFormat(QImage::Format_ARGB32);
    const QImage b = exported.convertToFormat(QImage::Format_ARGB32);
    if (a.size() != b.size()) return 255;
    double sum = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width() * 4; ++x)
            sum += std::abs(a.constScanLine(y)[x] - b.constScanLine(y)[x]);
    return sum / (4.0 * a.width() * a.height());
}

// What is seen is what is exported: at the same number of pixels the canvas and the file agree.
struct PreviewTest : EditorWindowTest {
    EditorServices real = services();
    EditorViewModel document{real};
    PreviewRenderer preview{document, real.imageRenderer, real.watermark};
    AnnotationLayer layer;

    void SetUp() override {
        QImage dashboard(480, 300, QImage::Format_RGB32);
        for (int y = 0; y < 300; ++y)
            for (int x = 0; x < 480; ++x)
                dashboard.setPixel(x, y, qRgb(x % 256, y % 256, (x / 12 + y / 12) % 2 * 200));
        document.loadCapture({Image(dashboard)});
        preview.setScale(1);
    }

    /// The preview with the layer over it, as the canvas shows them.
    QImage shown() {
        QImage picture = preview.preview().convertToFormat(QImage::Format_ARGB32_Premultiplied);
        if (picture.isNull()) return picture;
        const QRectF content = preview.shownContent().value_or(QRectF());
        const double scale = content.width() / document.screenshot().pointSize().width();
        layer.show(document.liveAnnotations(), picture.rect(),
                   {content.topLeft(), {scale, scale}, scale});
        QPainter painter(&picture);
        layer.paint(painter);
        return picture;
    }

    /// Waits for what is made in the background.
    void expectShownIsExported(const std::string& what) {
        const auto exported = runUntilDone(document.outputModel().prepareRenderedImage());
        QElapsedTimer timer;
        timer.start();
        double difference = 255;
        while (difference > 1 && timer.elapsed() < 5000) {
            runEventsFor(20);
            difference = meanDifference(shown(), exported.bitmap());
        }
        EXPECT_LE(difference, 1.0) << what;
    }
};

TEST_F(PreviewTest, ThePresetsAreShownAsTheyAreExported) {
    for (const PresetTheme& preset : PresetTheme::all()) {
        document.applyPresetTheme(preset);
        expectShownIsExported(preset.id.toStdString());
    }
}

TEST_F(PreviewTest, TheFramesAreShownAsTheyAreExported) {
    for (const auto& row : enumTable(FrameStyle{})) {
        document.styleModel().set_frameStyle(row.value);
        expectShownIsExported(row.raw);
    }
}

TEST_F(PreviewTest, AnnotationsOfAllKindsAreShownAsTheyAreExported) {
    const CodableColor red{0.9, 0.2, 0.1, 1}, veil{0.1, 0.4, 0.9, 0.5};
    const auto id = [] { return QUuid::createUuid(); };
    std::vector<AnyAnnotation> sheet = {
        ArrowAnnotation{id(), {60, 200}, {240, 60}, {}, red, 5},
        RectangleAnnotation{id(), QRectF(40, 40, 160, 90), veil, 6, FillMode::both, 8, 30},
        CircleAnnotation{id(), {180, 140}, 50, veil, 8, FillMode::stroke},
        TextAnnotation{id(), QRectF(90, 60, 120, 20), QStringLiteral("Words and words"), red, 20},
        NumberAnnotation{id(), {350, 120}, 12, red, 32, 0},
        BrushAnnotation{id(), {{40, 180}, {90, 120}, {160, 190}, {260, 100}}, veil, 14, true},
        EmojiAnnotation{id(), {320, 60}, QStringLiteral("🎯"), 40, red, 0, 15},
        MeasurementAnnotation{id(), {60, 240}, {280, 230}, red, 3},
    };
    for (const auto& row : blurTypes) {
        const double left = 280 + 50.0 * static_cast<int>(row.value);
        sheet.push_back(BlurAnnotation{id(), {left, 150, 40, 90}, 10, red, 0, row.value, 0.5});
    }
    document.toggleAnnotationMode();
    document.annotationVM().setAnnotations(sheet);
    expectShownIsExported("sheet");
    EXPECT_TRUE(preview.pendingBlurs().empty());
}

// A blur that moves is hinted at; the preview shows it again once it rests.
TEST_F(PreviewTest, ABlurThatMovesIsLeftToItsPlaceholderUntilItRests) {
    const BlurAnnotation still{QUuid::createUuid(), {20, 20, 60, 60}};
    const BlurAnnotation moving{QUuid::createUuid(), {200, 120, 80, 60}};
    document.toggleAnnotationMode();
    AnnotationViewModel& annotations = document.annotationVM();
    annotations.setAnnotations({still, moving});
    EXPECT_EQ(preview.pendingBlurs().size(), 2u) << "not made yet";
    expectShownIsExported("before");
    annotations.selectAnnotation(AnyAnnotation(moving));
    startDrag(annotations);
    annotations.moveGesture({{40, 10}});
    const auto pending = preview.pendingBlurs();
    ASSERT_EQ(pending.size(), 1u);
    EXPECT_EQ(pending.front().bounds, moving.bounds.translated(40, 10));
    expectShownIsExported("at rest, still held");
    annotations.finishGesture();
    QElapsedTimer timer;
    timer.start();
    while (!preview.pendingBlurs().empty() && timer.elapsed() < 5000)
        runEventsFor(20);
    EXPECT_TRUE(preview.pendingBlurs().empty());
    expectShownIsExported("let go");
}

}  // namespace
}  // namespace kestrio
