// Decoding and encoding, beside what a reader would have called instead: Qt and plain libpng.

#include <QBuffer>
#include <QFile>
#include <QPainter>

#include <benchmark/benchmark.h>
#include <png.h>

#include "imaging/Image.h"
#include "imaging/codecs/ImageDecoder.h"
#include "imaging/codecs/JpegEncoder.h"
#include "imaging/codecs/PngEncoder.h"
#include "imaging/codecs/WebPEncoder.h"

namespace kestrio {
namespace {

const QByteArray& dashboardFile() {
    static const QByteArray bytes = [] {
        QFile file(QStringLiteral(KESTRIO_SOURCE_DIR "/tests/support/pictures/dashboard-4k.png"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }();
    return bytes;
}

const QImage& dashboard() {
    static const QImage bitmap = decodeImage(dashboardFile());
    return bitmap;
}

// What leaves the editor: the picture scaled down onto a gradient.
const QImage& composedPicture() {
    static const QImage bitmap = [] {
        QImage canvas(dashboard().size(), QImage::Format_RGB32);
        QPainter painter(&canvas);
        QLinearGradient gradient(0, 0, canvas.width(), canvas.height());
        gradient.setColorAt(0, QColor(255, 153, 51));
        gradient.setColorAt(1, QColor(255, 102, 153));
        painter.fillRect(canvas.rect(), gradient);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(canvas.rect().adjusted(114, 64, -114, -64), dashboard());
        return canvas;
    }();
    return bitmap;
}

QByteArray encodeByQt(const QImage& bitmap, const char* format) {
    QBuffer buffer;
    bitmap.save(&buffer, format);
    return buffer.data();
}

QByteArray encodeByLibpng(const QImage& rgb888) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(rgb888.width());
    image.height = static_cast<png_uint_32>(rgb888.height());
    image.format = PNG_FORMAT_RGB;
    QByteArray file(PNG_IMAGE_PNG_SIZE_MAX(image), Qt::Uninitialized);
    size_t size = static_cast<size_t>(file.size());
    png_image_write_to_memory(&image, file.data(), &size, 0, rgb888.constBits(),
                              static_cast<int>(rgb888.bytesPerLine()), nullptr);
    file.truncate(static_cast<qsizetype>(size));
    return file;
}

template <typename Encode>
void measureEncoding(benchmark::State& state, Encode encode) {
    qsizetype bytes = 0;
    for (auto _ : state)
        bytes = encode().size();
    state.counters["bytes"] = static_cast<double>(bytes);
}

void decodePngOurs(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(decodeImage(dashboardFile()).constBits());
}
void decodePngQt(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            inCanonicalFormat(QImage::fromData(dashboardFile(), "PNG")).constBits());
    }
}
void decodePngLibpng(benchmark::State& state) {
    for (auto _ : state) {
        png_image image{};
        image.version = PNG_IMAGE_VERSION;
        png_image_begin_read_from_memory(&image, dashboardFile().constData(),
                                         static_cast<size_t>(dashboardFile().size()));
        image.format = PNG_FORMAT_BGRA;
        QImage bitmap(static_cast<int>(image.width), static_cast<int>(image.height),
                      QImage::Format_RGB32);
        png_image_finish_read(&image, nullptr, bitmap.bits(), 0, nullptr);
        benchmark::DoNotOptimize(bitmap.constBits());
    }
}
void encodePngOurs(benchmark::State& state) {
    measureEncoding(state, [] { return encodePng(composedPicture()); });
}
void encodePngWithAlpha(benchmark::State& state) {
    QImage bitmap = composedPicture().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    bitmap.setPixel(0, 0, 0);
    measureEncoding(state, [&] { return encodePng(bitmap); });
}
void encodePngQt(benchmark::State& state) {
    measureEncoding(state, [] { return encodeByQt(composedPicture(), "PNG"); });
}
void encodePngLibpng(benchmark::State& state) {
    const QImage rgb = composedPicture().convertToFormat(QImage::Format_RGB888);
    measureEncoding(state, [&] { return encodeByLibpng(rgb); });
}
void encodeJpegOurs(benchmark::State& state) {
    measureEncoding(state, [] { return encodeJpeg(composedPicture()); });
}
void encodeJpegQt(benchmark::State& state) {
    measureEncoding(state, [] { return encodeByQt(composedPicture(), "JPEG"); });
}
// Of 4K this takes seconds, almost all of them inside libwebp.
void encodeWebPOurs(benchmark::State& state) {
    const QImage part = dashboard().copy(0, 0, 400, 300);
    measureEncoding(state, [&] { return encodeWebP(part); });
}

BENCHMARK(decodePngOurs)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(decodePngQt)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(decodePngLibpng)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(encodePngOurs)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(encodePngWithAlpha)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(encodePngQt)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(encodePngLibpng)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(encodeJpegOurs)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(encodeJpegQt)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(encodeWebPOurs)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace kestrio
