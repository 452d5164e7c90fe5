// Blur annotations on a 4K screenshot at one pixel a point, as the editor's preview and the export
// apply them. The first figures are the yardstick: one blur of the whole picture.
#include <benchmark/benchmark.h>

#include <QImage>

#include "annotation/blur/BlurEffectRenderer.h"
#include "imaging/filters/GaussianBlur.h"

namespace kestrio {
namespace {

const QImage& screenshot() {
    static const QImage bitmap =
        QImage(QStringLiteral(KESTRIO_SOURCE_DIR "/tests/support/pictures/dashboard-4k.png"))
            .convertToFormat(QImage::Format_RGB32);
    return bitmap;
}

/// 60 rectangles in ten columns, each of `share` of the picture's sixtieth part. Rows are
/// staggered, as lines of text are.
std::vector<BlurAnnotation> sixty(double share, BlurType type, std::vector<double> intensities) {
    const double side = std::sqrt(share), width = 384, height = 360;
    std::vector<BlurAnnotation> annotations;
    for (int i = 0; i < 60; ++i) {
        const int column = i % 10, row = i / 10;
        const double stagger = (1 - side) * height * (column % 4) / 4;
        BlurAnnotation annotation;
        annotation.bounds = {column * width, row * height + stagger, side * width, side * height};
        annotation.blurType = type;
        annotation.intensity = intensities[i % intensities.size()];
        annotations.push_back(annotation);
    }
    return annotations;
}

/// 60 short lines of text in two columns of a form; about 2 % of the picture.
std::vector<BlurAnnotation> form(BlurType type) {
    std::vector<BlurAnnotation> annotations;
    for (int i = 0; i < 60; ++i) {
        BlurAnnotation annotation;
        annotation.bounds = {1000.0 + 300 * (i % 2), 300.0 + 40 * (i / 2), 130, 22};
        annotation.blurType = type;
        annotation.intensity = 0.5;
        annotations.push_back(annotation);
    }
    return annotations;
}

// Works on a picture of its own, in place.
void measure(benchmark::State& state, const std::vector<BlurAnnotation>& annotations) {
    Image image(screenshot().copy());
    for (auto _ : state) {
        const QSizeF size = image.pointSize();
        image = BlurEffectRenderer::shared().apply(std::move(image), annotations, size,
                                                   QRectF(QPointF(), size));
    }
}

void wholeFilter(benchmark::State& state) {
    QImage bitmap = screenshot().copy();
    for (auto _ : state)
        gaussianBlur(bitmap, state.range(0) / 10.0);
}

void regionFilter(benchmark::State& state) {
    QImage bitmap = screenshot().copy();
    std::vector<QRect> rects;
    for (const BlurAnnotation& annotation : sixty(state.range(1) / 100.0, BlurType::gaussian, {0}))
        rects.push_back(annotation.bounds.toRect());
    const PixelRegion region(rects, bitmap.rect());
    for (auto _ : state)
        gaussianBlur(bitmap, state.range(0) / 10.0, region);
}

void copyOnly(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(screenshot().copy());
}

/// A picture that somebody else still shows, so it is copied first.
void sharedPicture(benchmark::State& state) {
    const auto annotations = sixty(0.02, BlurType::gaussian, {0.5});
    const Image image(screenshot());
    for (auto _ : state) {
        const QSizeF size = image.pointSize();
        benchmark::DoNotOptimize(
            BlurEffectRenderer::shared().apply(image, annotations, size, QRectF(QPointF(), size)));
    }
}

void annotate(benchmark::State& state, BlurType type, double share,
              std::vector<double> intensities) {
    measure(state, sixty(share, type, std::move(intensities)));
}

void annotateWhole(benchmark::State& state, BlurType type) {
    BlurAnnotation annotation;
    annotation.bounds = screenshot().rect();
    annotation.blurType = type;
    annotation.intensity = 0.5;
    measure(state, {annotation});
}

void annotateForm(benchmark::State& state, BlurType type) {
    measure(state, form(type));
}

// The wall clock counts; the time of all cores beside it gives ratios on a machine that others use.
void setUp(benchmark::internal::Benchmark* measured) {
    measured->MeasureProcessCPUTime()->UseRealTime()->Unit(benchmark::kMillisecond);
}

const std::vector<double> one = {0.5}, three = {0.2, 0.5, 0.8};

BENCHMARK(wholeFilter)->Arg(50)->Arg(175)->Arg(300)->Arg(600)->Apply(setUp);
BENCHMARK(regionFilter)->ArgsProduct({{30, 50, 175, 300, 600}, {2, 60}})->Apply(setUp);
BENCHMARK(copyOnly)->Apply(setUp);
BENCHMARK(sharedPicture)->Apply(setUp);
BENCHMARK_CAPTURE(annotateWhole, gaussian, BlurType::gaussian)->Apply(setUp);
BENCHMARK_CAPTURE(annotate, gaussian60Percent, BlurType::gaussian, 0.6, one)->Apply(setUp);
BENCHMARK_CAPTURE(annotate, gaussian2Percent, BlurType::gaussian, 0.02, one)->Apply(setUp);
BENCHMARK_CAPTURE(annotateForm, gaussian, BlurType::gaussian)->Apply(setUp);
BENCHMARK_CAPTURE(annotate, gaussian60PercentThreeStrengths, BlurType::gaussian, 0.6, three)
    ->Apply(setUp);
BENCHMARK_CAPTURE(annotateWhole, pixelate, BlurType::pixelate)->Apply(setUp);
BENCHMARK_CAPTURE(annotate, pixelate60Percent, BlurType::pixelate, 0.6, one)->Apply(setUp);
BENCHMARK_CAPTURE(annotate, pixelate2Percent, BlurType::pixelate, 0.02, one)->Apply(setUp);
BENCHMARK_CAPTURE(annotate, pixelate60PercentThreeStrengths, BlurType::pixelate, 0.6, three)
    ->Apply(setUp);
BENCHMARK_CAPTURE(annotateWhole, solid, BlurType::solid)->Apply(setUp);
BENCHMARK_CAPTURE(annotate, solid60Percent, BlurType::solid, 0.6, one)->Apply(setUp);
BENCHMARK_CAPTURE(annotate, solid2Percent, BlurType::solid, 0.02, one)->Apply(setUp);
BENCHMARK_CAPTURE(annotate, solid60PercentThreeStrengths, BlurType::solid, 0.6, three)
    ->Apply(setUp);

}  // namespace
}  // namespace kestrio
