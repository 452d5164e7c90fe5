// Drawing annotations over a 4K picture at density 2.

#include "annotation/painting/AnnotationPainter.h"

#include <benchmark/benchmark.h>
#include <QGuiApplication>
#include <random>

namespace kestrio {
namespace {

// Mixed as people mark screenshots: every kind in turn, all over the picture.
std::vector<AnyAnnotation> mixedAnnotations(int count) {
    std::mt19937 random(7);
    const auto between = [&](double low, double high) {
        return std::uniform_real_distribution(low, high)(random);
    };
    std::vector<AnyAnnotation> annotations;
    for (int i = 0; i < count; ++i) {
        const QPointF at(between(0, 1700), between(0, 900));
        const QPointF to = at + QPointF(between(-200, 200), between(-150, 150));
        const CodableColor color{between(0, 1), between(0, 1), between(0, 1), 1};
        const QRectF box = QRectF(at, QSizeF(between(40, 240), between(30, 160)));
        const double width = 2 + 2 * (i % 4);
        const auto fill = static_cast<FillMode>(i % 3);
        std::vector<QPointF> points{at};
        while (points.size() < 60)
            points.push_back(points.back() + QPointF(between(-8, 12), between(-8, 8)));
        switch (i % 9) {
            case 0:
                annotations.push_back(ArrowAnnotation{{}, at, to, {}, color, width});
                break;
            case 1:
                annotations.push_back(
                    RectangleAnnotation{{}, box, color, width, fill, 6, between(-40, 40)});
                break;
            case 2:
                annotations.push_back(
                    CircleAnnotation{{}, at, between(10, 90), color, width, fill});
                break;
            case 3:
                annotations.push_back(TextAnnotation{
                    {}, box, QStringLiteral("A note of some words about this"), color, 16});
                break;
            case 4:
                annotations.push_back(NumberAnnotation{{}, at, i, color, 24 + 2 * width, 0});
                break;
            case 5:
                annotations.push_back(BrushAnnotation{{}, points, color, width, false});
                break;
            case 6:
                annotations.push_back(
                    BrushAnnotation{{}, points, color.withAlphaTimes(0.4), width * 3, true});
                break;
            case 7:
                annotations.push_back(EmojiAnnotation{
                    {}, at, QStringLiteral("🎉"), between(24, 96), color, 0, between(-20, 20)});
                break;
            default:
                annotations.push_back(MeasurementAnnotation{{}, at, to, color, width});
                break;
        }
    }
    return annotations;
}

void paintOver4K(benchmark::State& state, const std::vector<AnyAnnotation>& annotations) {
    QImage picture(3840, 2160, QImage::Format_RGB32);
    picture.fill(Qt::white);
    for (auto _ : state)
        paintAnnotations(picture, annotations, {QPointF(), {2, 2}, 2});
}

void paintMixed(benchmark::State& state) {
    paintOver4K(state, mixedAnnotations(200));
}

// Every kind by itself, 200 of it.
void paintKind(benchmark::State& state) {
    const std::vector<AnyAnnotation> mixed = mixedAnnotations(200 * 9);
    std::vector<AnyAnnotation> ofKind;
    for (auto i = static_cast<std::size_t>(state.range(0)); i < mixed.size(); i += 9)
        ofKind.push_back(mixed[i]);
    state.SetLabel(annotationTypes[static_cast<std::size_t>(ofKind.front().type())].raw);
    paintOver4K(state, ofKind);
}

BENCHMARK(paintMixed)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(paintKind)->DenseRange(0, 8)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace kestrio

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
