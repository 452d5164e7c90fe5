#include "render/backdrop/OverlayPainter.h"

#include "core/Parallel.h"
#include "core/Simd.h"

#include <QRgb>
#include <cmath>
#include <vector>

namespace kestrio {

namespace {

enum class Shape { diagonal, vertical, radial };

// A shade of one colour whose alpha runs along evenly spaced stops. The shapes do not continue past
// their last stop.
struct Shade {
    OverlayType type;
    Shape shape;
    float level;  // 0 black, 255 white
    int stopCount;
    float stops[3];  // alpha at full opacity
};

constexpr Shade shades[] = {
    {OverlayType::diagonalShadow, Shape::diagonal, 0, 2, {1, 0}},
    {OverlayType::naturalShadow, Shape::vertical, 0, 3, {0.8f, 0, 0.3f}},
    {OverlayType::softGlow, Shape::radial, 255, 2, {0.5f, 0}},
    {OverlayType::vignette, Shape::radial, 0, 2, {0, 1}},
};

struct Place {
    double width;
    double height;
    double radius;
};

KESTRIO_SIMD void distancesFrom(const Place& place, float y, float* places, int count) {
    const auto middle = static_cast<float>(place.width / 2 - 0.5);
    const auto dy = y - static_cast<float>(place.height / 2);
    const auto perRadius = static_cast<float>(1 / place.radius);
    for (int x = 0; x < count; ++x) {
        const float dx = static_cast<float>(x) - middle;
        places[x] = std::sqrt(dx * dx + dy * dy) * perRadius;
    }
}

KESTRIO_SIMD void placesAlong(const Place& place, float y, float* places, int count) {
    const double squared = place.width * place.width + place.height * place.height;
    const auto step = static_cast<float>(place.width / squared);
    const auto first = static_cast<float>((0.5 * place.width + y * place.height) / squared);
    for (int x = 0; x < count; ++x)
        places[x] = first + step * static_cast<float>(x);
}

// How far along the shape each pixel centre of row `y` lies: 0 at its first stop, 1 at its last.
void placesOfRow(const Shade& shade, const Place& place, int y, std::vector<float>& places) {
    const double centreY = y + 0.5;
    const auto count = static_cast<int>(places.size());
    switch (shade.shape) {
        case Shape::diagonal:
            placesAlong(place, static_cast<float>(centreY), places.data(), count);
            break;
        case Shape::vertical:
            std::fill(places.begin(), places.end(), static_cast<float>(centreY / place.height));
            break;
        case Shape::radial:
            distancesFrom(place, static_cast<float>(centreY), places.data(), count);
            break;
    }
}

// `edge` is the shape's length in pixels: where it ends, its last pixel fades, so that the end of a
// circle is smooth.
KESTRIO_SIMD void alphasAlong(float* places, int count, const Shade& shade, float opacity,
                              float edge) {
    const float first = shade.stops[0] * opacity;
    const float second = shade.stops[1] * opacity;
    const float third = shade.stopCount == 3 ? shade.stops[2] * opacity : second;
    const auto spans = static_cast<float>(shade.stopCount - 1);
    for (int i = 0; i < count; ++i) {
        const float along = places[i] * spans;
        const float upper = std::min(along, 1.0f);
        const float lower = std::min(std::max(along - 1.0f, 0.0f), 1.0f);
        const float alpha = first + (second - first) * upper + (third - second) * lower;
        const float inside = std::min(std::max((1.0f - places[i]) * edge + 0.5f, 0.0f), 1.0f);
        places[i] = alpha * inside;
    }
}

// Signed integers throughout: AVX2 converts no unsigned ones.
KESTRIO_SIMD void blendRow(QRgb* row, const float* alphas, int count, float level) {
    for (int x = 0; x < count; ++x) {
        const int below = static_cast<int>(row[x]);
        const float keep = 1.0f - alphas[x];
        const float add = level * alphas[x] + 0.5f;
        const int blue = static_cast<int>(static_cast<float>(below & 255) * keep + add);
        const int green = static_cast<int>(static_cast<float>((below >> 8) & 255) * keep + add);
        const int red = static_cast<int>(static_cast<float>((below >> 16) & 255) * keep + add);
        const int alpha = static_cast<int>(static_cast<float>((below >> 24) & 255) * keep +
                                           255.0f * alphas[x] + 0.5f);
        row[x] = static_cast<QRgb>((alpha << 24) | (red << 16) | (green << 8) | blue);
    }
}

}  // namespace

void drawOverlay(QImage& bitmap, OverlayType type, double opacity) {
    const auto* const shade = std::find_if(std::begin(shades), std::end(shades),
                                           [type](const Shade& row) { return row.type == type; });
    const auto share = static_cast<float>(OverlaySettings::opacityRange.clamped(opacity) / 100);
    if (shade == std::end(shades) || !(share > 0)) return;
    const int width = bitmap.width();
    const int height = bitmap.height();
    // The straight shapes end with the bitmap.
    const float edge = shade->shape == Shape::radial ? std::max(width, height) * 0.5f : 1e9f;
    const Place place{double(width), double(height), std::max(width, height) * 0.5};
    const qsizetype stride = bitmap.bytesPerLine();
    uchar* const bits = bitmap.bits();

    parallelBands(height, 16, [&](int first, int last) {
        std::vector<float> alphas(width);
        for (int y = first; y < last; ++y) {
            placesOfRow(*shade, place, y, alphas);
            alphasAlong(alphas.data(), width, *shade, share, edge);
            blendRow(reinterpret_cast<QRgb*>(bits + y * stride), alphas.data(), width,
                     shade->level);
        }
    });
}

QImage renderOverlayImage(OverlayType type, QSize pixels, double opacity) {
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) return image;
    image.fill(Qt::transparent);
    drawOverlay(image, type, opacity);
    return image;
}

}  // namespace kestrio
