// The imaging filters on a 4K screenshot, each beside what a reader would have written or called
// instead. Qt's smooth transformations interpolate linearly or average boxes where the filters
// weigh cubically.
#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

#include "imaging/filters/ColorAdjust.h"
#include "imaging/filters/GaussianBlur.h"
#include "imaging/filters/Mask.h"
#include "imaging/filters/Resample.h"
#include "imaging/filters/Rotate.h"

namespace kestrio {
namespace {

const QImage& screenshot() {
    static const QImage bitmap =
        QImage(QStringLiteral(KESTRIO_SOURCE_DIR "/tests/support/pictures/dashboard-4k.png"))
            .convertToFormat(QImage::Format_RGB32);
    return bitmap;
}

QImage whiteCanvas() {
    QImage canvas(screenshot().size(), QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::white);
    return canvas;
}

constexpr QRectF cardRect(64, 36, 3712, 2088);

QPainterPath cardPath() {
    QPainterPath path;
    path.addRoundedRect(cardRect, 24, 24);
    return path;
}

// The wall clock counts: the filters use all cores, and so would a reader's program wait for them.
void measure(benchmark::State& state, const std::function<void()>& work) {
    work();
    for (auto _ : state)
        work();
}

/// A separable convolution in floats as one writes it down, on one core.
void plainBlur(QImage& bitmap, double sigma) {
    const int reach = static_cast<int>(std::ceil(3 * sigma));
    const int width = bitmap.width(), height = bitmap.height();
    std::vector<float> taps;
    for (int k = -reach; k <= reach; ++k)
        taps.push_back(std::exp(-0.5 * k * k / (sigma * sigma)));
    float sum = 0;
    for (float tap : taps)
        sum += tap;
    std::vector<float> half(std::size_t(width) * height * 4);
    for (int y = 0; y < height; ++y) {
        const uchar* row = bitmap.constScanLine(y);
        float* to = half.data() + std::size_t(y) * width * 4;
        for (int k = -reach; k <= reach; ++k) {
            for (int x = 0; x < width; ++x) {
                const uchar* from = row + std::clamp(x + k, 0, width - 1) * 4;
                for (int c = 0; c < 4; ++c)
                    to[x * 4 + c] += from[c] * taps[k + reach] / sum;
            }
        }
    }
    std::vector<float> column(std::size_t(width) * 4);
    for (int y = 0; y < height; ++y) {
        std::fill(column.begin(), column.end(), 0.5f);
        for (int k = -reach; k <= reach; ++k) {
            const float* from =
                half.data() + std::size_t(std::clamp(y + k, 0, height - 1)) * width * 4;
            for (int i = 0; i < width * 4; ++i)
                column[i] += from[i] * taps[k + reach] / sum;
        }
        std::copy(column.begin(), column.end(), bitmap.scanLine(y));
    }
}

void blur(benchmark::State& state) {
    QImage bitmap = screenshot().copy();
    measure(state, [&] { gaussianBlur(bitmap, state.range(0)); });
}

void blurPlain(benchmark::State& state) {
    QImage bitmap = screenshot().copy();
    for (auto _ : state)
        plainBlur(bitmap, state.range(0));
}

void blurMask(benchmark::State& state) {
    Mask mask = rasterise(cardPath(), screenshot().rect());
    measure(state, [&] { gaussianBlur(mask, state.range(0)); });
}

void rasteriseCard(benchmark::State& state) {
    measure(state,
            [&] { benchmark::DoNotOptimize(rasterise(cardPath(), cardRect.toRect()).bounds()); });
}

void compositeShadow(benchmark::State& state) {
    const Mask mask = rasterise(cardPath(), screenshot().rect());
    QImage canvas = whiteCanvas();
    measure(state, [&] { compositeColor(canvas, mask, {0, 8}, QColor(0, 0, 0, 80)); });
}

void compositeShadowQt(benchmark::State& state) {
    const Mask mask = rasterise(cardPath(), screenshot().rect());
    QImage shadow(screenshot().size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < shadow.height(); ++y) {
        for (int x = 0; x < shadow.width(); ++x) {
            shadow.setPixel(x, y, qRgba(0, 0, 0, mask.row(y)[x] * 80 / 255));
        }
    }
    QImage canvas = whiteCanvas();
    QPainter painter(&canvas);
    measure(state, [&] { painter.drawImage(0, 8, shadow); });
}

void drawCard(benchmark::State& state) {
    const Mask mask = rasterise(cardPath(), cardRect.toRect());
    QImage canvas = whiteCanvas();
    measure(state, [&] { drawScaled(canvas, screenshot(), {cardRect, &mask}); });
}

void drawCardQt(benchmark::State& state) {
    QImage canvas = whiteCanvas();
    QPainter painter(&canvas);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setClipPath(cardPath());
    measure(state, [&] { painter.drawImage(cardRect, screenshot()); });
}

void thumbnail(benchmark::State& state) {
    measure(state, [&] { scaledTo(screenshot(), QSize(state.range(0), state.range(0) * 9 / 16)); });
}

void thumbnailQt(benchmark::State& state) {
    measure(state, [&] {
        benchmark::DoNotOptimize(screenshot().scaled(QSize(state.range(0), state.range(0) * 9 / 16),
                                                     Qt::IgnoreAspectRatio,
                                                     Qt::SmoothTransformation));
    });
}

void saturation(benchmark::State& state) {
    QImage bitmap = screenshot().copy();
    measure(state, [&] { adjustSaturation(bitmap, 1.3); });
}

void saturationPlain(benchmark::State& state) {
    QImage bitmap = screenshot().copy();
    measure(state, [&] {
        for (int y = 0; y < bitmap.height(); ++y) {
            auto* row = reinterpret_cast<QRgb*>(bitmap.scanLine(y));
            for (int x = 0; x < bitmap.width(); ++x) {
                const QRgb pixel = row[x];
                const double luma =
                    0.2125 * qRed(pixel) + 0.7154 * qGreen(pixel) + 0.0721 * qBlue(pixel);
                const auto adjusted = [&](int channel) {
                    return qBound(0, qRound(luma + (channel - luma) * 1.3), qAlpha(pixel));
                };
                row[x] = qRgba(adjusted(qRed(pixel)), adjusted(qGreen(pixel)),
                               adjusted(qBlue(pixel)), qAlpha(pixel));
            }
        }
    });
}

void quarterTurn(benchmark::State& state) {
    measure(state, [&] { rotatedQuarterTurns(screenshot(), 1); });
}

void quarterTurnQt(benchmark::State& state) {
    measure(state,
            [&] { benchmark::DoNotOptimize(screenshot().transformed(QTransform().rotate(90))); });
}

void rotation(benchmark::State& state) {
    measure(state, [&] { rotated(screenshot(), 7.3, screenshot().size()); });
}

void rotationQt(benchmark::State& state) {
    measure(state, [&] {
        QImage canvas(screenshot().size(), QImage::Format_ARGB32_Premultiplied);
        canvas.fill(Qt::transparent);
        QPainter painter(&canvas);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        painter.translate(canvas.rect().center());
        painter.rotate(7.3);
        painter.drawImage(-canvas.rect().center(), screenshot());
    });
}

BENCHMARK(blur)->Arg(1)->Arg(3)->Arg(6)->Arg(20)->Arg(60)->UseRealTime()->Unit(
    benchmark::kMillisecond);
BENCHMARK(blurPlain)->Arg(3)->Iterations(1)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(blurMask)->Arg(4)->Arg(20)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(rasteriseCard)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(compositeShadow)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(compositeShadowQt)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(drawCard)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(drawCardQt)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(thumbnail)->Arg(1920)->Arg(240)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(thumbnailQt)->Arg(1920)->Arg(240)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(saturation)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(saturationPlain)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(quarterTurn)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(quarterTurnQt)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(rotation)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(rotationQt)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kestrio
