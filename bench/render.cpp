// The composition of a 4K screenshot at density 2: plain, and with everything on its backdrop.

#include "imaging/codecs/ImageDecoder.h"
#include "render/ImageComposer.h"
#include "render/style/Theme.h"

#include <benchmark/benchmark.h>
#include <QGuiApplication>

namespace kestrio {
namespace {

ImageComposer& composer() {
    static ImageComposer instance(
        std::make_shared<WatermarkService>(std::make_shared<MemoryUserDefaults>()));
    return instance;
}

CompositeRequest sunsetRequest() {
    static const QImage sample = loadImageFile(
        QStringLiteral(KESTRIO_SOURCE_DIR "/tests/support/pictures/dashboard-4k.png"));
    CompositeRequest request;
    request.screenshot = Image(sample, 2.0);
    request.canvasState.canvasSize = request.screenshot.pointSize();
    request.setStyle(PresetTheme::find(QStringLiteral("sunset"))->style());
    return request;
}

void compose(benchmark::State& state, const CompositeRequest& request) {
    for (auto _ : state)
        benchmark::DoNotOptimize(composer().compose(request));
}

void composePlain(benchmark::State& state) {
    compose(state, sunsetRequest());
}

// Blur 10, noise 30, saturation 150, an overlay in front and the pattern of the argument.
void composeEverything(benchmark::State& state) {
    CompositeRequest request = sunsetRequest();
    const auto& row = patternTypes[static_cast<std::size_t>(state.range(0))];
    request.backdrop.effects = {10, 30, 150};
    request.backdrop.pattern = PatternSettings{row.value, 0.5, 1, {0, 0, 0, 0.3}};
    request.backdrop.overlay = OverlaySettings{OverlayType::vignette, 30, OverlayPosition::overlay};
    state.SetLabel(row.raw);
    compose(state, request);
}

void composeFramed(benchmark::State& state) {
    CompositeRequest request = sunsetRequest();
    request.frameStyle = frameStyles[static_cast<std::size_t>(state.range(0))].value;
    state.SetLabel(frameStyles[static_cast<std::size_t>(state.range(0))].raw);
    compose(state, request);
}

BENCHMARK(composePlain)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(composeEverything)->DenseRange(0, 7)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(composeFramed)->DenseRange(1, 6)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace kestrio

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
