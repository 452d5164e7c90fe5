#include "imaging/filters/Mask.h"

#include <QPainter>

#include "core/Parallel.h"
#include "core/Simd.h"
#include "imaging/Image.h"

namespace kestrio {

namespace {

// Qt's rasteriser holds coordinates in 16 bits, so tall masks are painted in strips. Their edges do
// not depend on the number of threads, and neither does the result.
constexpr int stripRows = 512;

/// A path that shares nothing: painters keep what they prepare of a path inside it, so that two
/// threads painting one path, or copies that share its data, destroy each other's.
QPainterPath deepCopy(const QPainterPath& path) {
    QPainterPath copy;
    copy.addPath(path);
    copy.setFillRule(path.fillRule());
    return copy;
}

std::vector<QPainterPath> copiesOf(const QPainterPath& path, int count) {
    std::vector<QPainterPath> copies;
    for (int i = 0; i < count; ++i)
        copies.push_back(deepCopy(path));
    return copies;
}

void paintStrip(const QPainterPath& path, Mask& mask, int firstRow, int rows) {
    const QRect& bounds = mask.bounds();
    QImage strip(mask.row(firstRow), bounds.width(), rows, bounds.width(), QImage::Format_Alpha8);
    QPainter painter(&strip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-bounds.left(), -firstRow);
    painter.fillPath(path, Qt::black);
}

/// A plain premultiplied colour, channels from 0 to 255 in the order of memory.
struct PlainColor {
    std::array<float, 4> channels;
    float alpha;
};

PlainColor premultiplied(const QColor& color) {
    const QColor rgb = color.toRgb();
    const float alpha = rgb.alphaF();
    return {{rgb.blueF() * alpha * 255, rgb.greenF() * alpha * 255, rgb.redF() * alpha * 255,
             alpha * 255},
            alpha};
}

// Blends with the fractional coverage instead of first rounding the colour to 8 bits: faint shadows
// would show steps otherwise.
KESTRIO_SIMD void blendPlainRow(std::uint32_t* pixels, const std::uint8_t* coverage, int count,
                                const PlainColor& color) {
    const float blue = color.channels[0] / 255, green = color.channels[1] / 255;
    const float red = color.channels[2] / 255, alpha = color.channels[3] / 255;
    const float opacity = color.alpha / 255;
    for (int x = 0; x < count; ++x) {
        const std::uint32_t pixel = pixels[x];
        const float cover = coverage[x];
        const float keep = 1.0f - cover * opacity;
        const auto mix = [&](int shift, float channel) {
            const float below = static_cast<std::int32_t>(pixel >> shift & 255u);
            const float sum = below * keep + cover * channel + 0.5f;
            return static_cast<std::uint32_t>(static_cast<std::int32_t>(sum)) << shift;
        };
        pixels[x] = mix(0, blue) | mix(8, green) | mix(16, red) | mix(24, alpha);
    }
}

}  // namespace

Mask::Mask(QRect bounds) {
    if (bounds.width() <= 0 || bounds.height() <= 0) return;
    bounds_ = bounds;
    coverage_.resize(static_cast<std::size_t>(bounds.width()) * bounds.height());
}

std::uint8_t Mask::at(QPoint pixel) const {
    return bounds_.contains(pixel) ? row(pixel.y())[pixel.x() - bounds_.left()] : 0;
}

Mask rasterise(const QPainterPath& path, QRect bounds, Qt::FillRule fillRule) {
    Mask mask(bounds);
    if (mask.isEmpty()) return mask;
    QPainterPath filled = path;
    filled.setFillRule(fillRule);
    const int strips = (bounds.height() + stripRows - 1) / stripRows;
    // Copied here and not in the bands: reading a path is no more thread-safe than painting it.
    const std::vector<QPainterPath> paths = copiesOf(filled, strips);
    parallelBands(strips, 1, [&](int first, int last) {
        for (int strip = first; strip < last; ++strip) {
            const int done = strip * stripRows;
            paintStrip(paths[static_cast<std::size_t>(strip)], mask, bounds.top() + done,
                       std::min(stripRows, bounds.height() - done));
        }
    });
    return mask;
}

Mask rasterise(const QPainterPath& path, QRect bounds) {
    return rasterise(path, bounds, path.fillRule());
}

void compositeColor(QImage& destination, const Mask& mask, QPoint offset, const QColor& color) {
    compositeColor(destination, mask, offset, color, destination.rect());
}

void compositeColor(QImage& destination, const Mask& mask, QPoint offset, const QColor& color,
                    QRect clip) {
    const QRect area = mask.bounds().translated(offset) & destination.rect() & clip;
    if (mask.isEmpty() || area.isEmpty() || color.alpha() == 0) return;
    destination = inCanonicalFormat(std::move(destination));
    const PlainColor plain = premultiplied(color);
    uchar* const bits = destination.bits();
    const qsizetype stride = destination.bytesPerLine();
    const int firstColumn = area.left() - offset.x() - mask.bounds().left();
    parallelBands(area.height(), 16, [&](int first, int last) {
        for (int y = area.top() + first; y < area.top() + last; ++y) {
            auto* pixels = reinterpret_cast<std::uint32_t*>(bits + y * stride) + area.left();
            blendPlainRow(pixels, mask.row(y - offset.y()) + firstColumn, area.width(), plain);
        }
    });
}

}  // namespace kestrio
