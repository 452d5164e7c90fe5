// Reading text in pictures, with all languages, on two cores. Bounds: a dense screen of 1920 x 1080
// in 2.0 s, the same at density 2 in 4 s, and a region of 600 x 200 in 0.4 s, each with the engine
// in memory; 3.0 s for the screen with loading it (`kestrio ocr` as a whole process takes a little
// more).
#include <benchmark/benchmark.h>

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>

#include "core/Task.h"
#include "platform/PlatformServices.h"

namespace kestrio {
namespace {

struct Column {
    int left;
    int width;
    const char* face;
    QRgb ink;
    QRgb ground;
};

constexpr Column columns[] = {{0, 760, "DejaVu Sans Mono", 0xffc9d1d9, 0xff0d1117},
                              {760, 560, "DejaVu Sans Mono", 0xff24292f, 0xfff6f8fa},
                              {1320, 600, "Inter", 0xff1b1b1f, 0xffffffff}};
constexpr const char* texts[] = {
    "const response = await fetch(url, { method: 'GET' });",
    "[12:45:11] ERROR db: connection refused (errno 111)",
    "Please read the attached report before we talk about next year's budget.",
    "std::unique_ptr<Widget> make_widget(const Options& options);",
    "-rw-r--r--  1 user user 18231 Mar 14 09:21 README.md",
    "Prices rose by 3.7 % in October, which is more than expected.",
    "SELECT name, COUNT(*) AS n FROM orders WHERE total >= 100;",
    "Save your work often: the machine will restart tonight.",
};

/// Three columns of small type, `lines` in each, of this many pixels a point. No two lines are the
/// same.
QImage screen(int lines, double density) {
    QImage picture(QSize(1920, 1080) * density, QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.scale(density, density);
    int number = 0;
    for (const Column& column : columns) {
        painter.setClipping(false);
        painter.fillRect(QRect(column.left, 0, column.width, 1080), QColor(column.ground));
        QFont font(QString::fromLatin1(column.face));
        font.setPixelSize(13);
        painter.setFont(font);
        painter.setPen(QColor(column.ink));
        painter.setClipRect(QRect(column.left, 0, column.width - 8, 1080));
        for (int line = 0; line < lines; ++line, ++number) {
            const QString text = QString::number(1000 + 37 * number) + QLatin1Char(' ') +
                                 QString::fromLatin1(texts[number % std::size(texts)]);
            painter.drawText(column.left + 16, 24 + line * 1040 / lines, text);
        }
    }
    return picture;
}

struct Reading {
    QImage picture;
    QRect region;
};

void report(benchmark::State& state, const std::vector<RecognizedLine>& lines) {
    qsizetype characters = 0;
    for (const RecognizedLine& line : lines)
        characters += line.text.size();
    state.counters["lines"] = static_cast<double>(lines.size());
    state.counters["characters"] = static_cast<double>(characters);
}

std::vector<RecognizedLine> read(TextRecognizer& recognizer, const Reading& reading) {
    return runUntilDone(recognizer.recognize({reading.picture, reading.region, {}}, {}));
}

void readAgain(benchmark::State& state, const Reading& reading) {
    const auto recognizer = makeTextRecognizer();
    if (!recognizer->obstacle().isEmpty())
        return state.SkipWithError(qPrintable(recognizer->obstacle()));
    std::vector<RecognizedLine> lines = read(*recognizer, reading);
    for (auto _ : state)
        lines = read(*recognizer, reading);
    report(state, lines);
}

void readFirst(benchmark::State& state, const Reading& reading) {
    std::vector<RecognizedLine> lines;
    for (auto _ : state)
        lines = read(*makeTextRecognizer(), reading);
    report(state, lines);
}

void usualScreen(benchmark::State& state) {
    readAgain(state, {screen(26, 1), {}});
}
void denseScreen(benchmark::State& state) {
    readAgain(state, {screen(52, 1), {}});
}
void denseScreenWithLoading(benchmark::State& state) {
    readFirst(state, {screen(52, 1), {}});
}
void denseScreenAtDensity2(benchmark::State& state) {
    readAgain(state, {screen(52, 2), {}});
}
void region(benchmark::State& state) {
    readAgain(state, {screen(52, 1), QRect(1320, 200, 600, 200)});
}

BENCHMARK(region)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(usualScreen)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(denseScreen)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(denseScreenWithLoading)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(denseScreenAtDensity2)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace kestrio

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("KESTRIO_RECOGNITION", KESTRIO_SOURCE_DIR "/build/recognition");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
