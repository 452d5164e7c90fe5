// Annotations by the thousand. Bounds: finding one among 10,000 under 50 microseconds, a stroke of
// 10,000 points through the optimiser under 10 milliseconds, reading 5,000 records under 50.
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>

#include "annotation/drawing/BrushStrokeOptimizer.h"
#include "annotation/editing/AnnotationViewModel.h"
#include "core/Json.h"

namespace kestrio {
namespace {

using Points = BrushStrokeOptimizer::Points;

/// Records of all kinds in turn, scattered over a picture of 3840 x 2160 points.
std::vector<AnyAnnotation> mixedAnnotations(int count) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> across(100, 3700);
    std::uniform_real_distribution<double> down(100, 2000);
    std::uniform_real_distribution<double> extent(10, 120);
    std::normal_distribution<double> step(0, 6);
    std::vector<AnyAnnotation> annotations;
    for (int i = 0; i < count; ++i) {
        const QUuid id = QUuid::createUuid();
        const CodableColor color{0.1, 0.55, i % 7 / 7.0, 1};
        const QPointF at(across(random), down(random));
        const QPointF to = at + QPointF(extent(random), extent(random));
        const QRectF box(at, to);
        std::vector<QPointF> points = {at};
        while (points.size() < 60)
            points.push_back(points.back() + QPointF(step(random), step(random)));
        const AnyAnnotation kinds[] = {
            ArrowAnnotation{id, at, to, {QPointF(at.x(), to.y())}, color, 3},
            RectangleAnnotation{id, box, color, 2, FillMode::both, 4, 30},
            CircleAnnotation{id, at, box.width(), color, 4, FillMode::stroke},
            TextAnnotation{id, box, QStringLiteral("Look here"), color, 16,
                           CodableFontWeight::semibold, QStringLiteral("Inter"),
                           CodableTextAlignment::leading, 0, 0},
            NumberAnnotation{id, at, i, color, 32, 0},
            BrushAnnotation{id, points, color, 6, i % 2 == 0},
            BlurAnnotation{id, box, 10, color, 0, BlurType::pixelate, 0.5},
            EmojiAnnotation{id, at, QStringLiteral("🎯"), 48, color, 0, 15},
            MeasurementAnnotation{id, at, to, color, 2},
        };
        annotations.push_back(kinds[i % std::size(kinds)]);
    }
    return annotations;
}

void findAmong(benchmark::State& state, const QPointF& point) {
    std::vector<AnyAnnotation> annotations = mixedAnnotations(9999);
    annotations.insert(annotations.begin(), CircleAnnotation{QUuid::createUuid(), {5, 5}, 20});
    const AnnotationViewModel model(annotations);
    for (auto _ : state)
        benchmark::DoNotOptimize(model.annotationAt(point));
}

void findBottommost(benchmark::State& state) {
    findAmong(state, {5, 5});
}

void findNothing(benchmark::State& state) {
    findAmong(state, {-500, -500});
}

void optimizeStroke(benchmark::State& state, const std::function<QPointF(int)>& pointAt) {
    Points points;
    std::vector<double> times;
    for (int i = 0; i < 10000; ++i) {
        points.push_back(pointAt(i));
        times.push_back(i * 0.1);
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(BrushStrokeOptimizer::optimize(points, times, 1.5));
}

void optimizeScribble(benchmark::State& state) {
    std::mt19937 random(5);
    std::normal_distribution<double> turn(0, 0.3);
    QPointF at(1000, 1000);
    double angle = 0;
    optimizeStroke(state, [&](int) {
        angle += turn(random);
        return at += QPointF(3 * std::cos(angle), 3 * std::sin(angle));
    });
}

// Each split of the first ten thousand cuts off one tooth.
void optimizeZigzag(benchmark::State& state) {
    optimizeStroke(state, [](int i) { return QPointF(i * 3, i % 2 ? i : -i); });
}

void optimizeCoil(benchmark::State& state) {
    optimizeStroke(state, [](int i) {
        return QPointF(i * 0.5 + 50 * std::cos(i * 0.3), 50 * std::sin(i * 0.3));
    });
}

void decodeDocument(benchmark::State& state) {
    const QByteArray text = encodeJsonText(mixedAnnotations(5000));
    for (auto _ : state)
        benchmark::DoNotOptimize(decodeJsonText<std::vector<AnyAnnotation>>(text));
    state.counters["bytes"] = static_cast<double>(text.size());
}

void encodeDocument(benchmark::State& state) {
    const auto annotations = mixedAnnotations(5000);
    for (auto _ : state)
        benchmark::DoNotOptimize(encodeJsonText(annotations));
}

BENCHMARK(findBottommost)->Unit(benchmark::kMicrosecond);
BENCHMARK(findNothing)->Unit(benchmark::kMicrosecond);
BENCHMARK(optimizeScribble)->Unit(benchmark::kMillisecond);
BENCHMARK(optimizeZigzag)->Unit(benchmark::kMillisecond);
BENCHMARK(optimizeCoil)->Unit(benchmark::kMillisecond);
BENCHMARK(decodeDocument)->Unit(benchmark::kMillisecond);
BENCHMARK(encodeDocument)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kestrio
