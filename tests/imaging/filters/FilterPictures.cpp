#include "imaging/filters/FilterPictures.h"

#include <QRandomGenerator>

#include "core/Parallel.h"

namespace kestrio {

namespace {

/// An opaque grey picture from a function of the place, 0 to 255.
QImage drawn(QSize size, const std::function<double(int x, int y)>& value) {
    QImage bitmap(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const int level = qRound(value(x, y));
            bitmap.setPixel(x, y, qRgb(level, 255 - level, level / 2));
        }
    }
    return bitmap;
}

}  // namespace

QImage noise(QSize size) {
    QRandomGenerator random(42);
    QImage bitmap(size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < size.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(bitmap.scanLine(y));
        std::generate_n(row, size.width(), [&] { return qPremultiply(random.generate()); });
    }
    return bitmap;
}

QImage screenshotPart(QRect part) {
    static const QImage screenshot =
        QImage(QStringLiteral(KESTRIO_SOURCE_DIR "/tests/support/pictures/dashboard-4k.png"))
            .convertToFormat(QImage::Format_RGB32);
    return screenshot.copy(part);
}

std::vector<NamedPicture> filterPictures(QSize size) {
    return {
        {"ramp",
         drawn(size,
               [&](int x, int y) { return 255.0 * (x + y) / (size.width() + size.height()); })},
        {"screenshot", screenshotPart(QRect(QPoint(500, 150), size))},
        {"noise", noise(size)},
        {"edges", drawn(size, [](int x, int y) { return (x / 23 + y / 31) % 2 ? 255 : 0; })},
        {"stripes", drawn(size, [](int x, int) { return 127.5 + 127.5 * std::sin(x * 0.95); })},
    };
}

bool isPremultiplied(const QImage& bitmap) {
    for (int y = 0; y < bitmap.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(bitmap.constScanLine(y));
        for (int x = 0; x < bitmap.width(); ++x) {
            const QRgb pixel = row[x];
            if (std::max({qRed(pixel), qGreen(pixel), qBlue(pixel)}) > qAlpha(pixel)) return false;
        }
    }
    return true;
}

bool sameWithAnyThreads(const QImage& bitmap, const std::function<void(QImage&)>& filter) {
    QImage several = bitmap.copy(), one = bitmap.copy();
    filter(several);
    setParallelThreadLimit(1);
    filter(one);
    setParallelThreadLimit(0);
    return several == one;
}

}  // namespace kestrio
