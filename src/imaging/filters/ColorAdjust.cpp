#include "imaging/filters/ColorAdjust.h"

#include "core/Parallel.h"
#include "core/Simd.h"
#include "imaging/Image.h"

namespace kestrio {

namespace {

// Luma and the distance from it are linear in the channels, so scaling all channels by alpha scales
// the result by alpha too: premultiplied pixels need no division, only a clamp to their own alpha.
KESTRIO_SIMD void saturateRow(std::uint32_t* pixels, int count, float factor) {
    for (int x = 0; x < count; ++x) {
        const std::uint32_t pixel = pixels[x];
        const float alpha = static_cast<std::int32_t>(pixel >> 24);
        const float red = static_cast<std::int32_t>(pixel >> 16 & 255u);
        const float green = static_cast<std::int32_t>(pixel >> 8 & 255u);
        const float blue = static_cast<std::int32_t>(pixel & 255u);
        const float luma = red * 0.2125f + green * 0.7154f + blue * 0.0721f;
        const auto adjusted = [&](float channel) {
            const float moved = luma + (channel - luma) * factor;
            const float inRange = std::min(std::max(moved, 0.0f), alpha);
            return static_cast<std::uint32_t>(static_cast<std::int32_t>(inRange + 0.5f));
        };
        pixels[x] =
            (pixel & 0xff000000u) | adjusted(red) << 16 | adjusted(green) << 8 | adjusted(blue);
    }
}

}  // namespace

void adjustSaturation(QImage& bitmap, double factor) {
    if (bitmap.isNull() || factor == 1.0 || std::isnan(factor)) return;
    // Beyond this all distances are clamped anyway, and products stay finite.
    factor = std::clamp(factor, -1e6, 1e6);
    bitmap = inCanonicalFormat(std::move(bitmap));
    uchar* const bits = bitmap.bits();
    const qsizetype stride = bitmap.bytesPerLine();
    parallelBands(bitmap.height(), 16, [&](int first, int last) {
        for (int y = first; y < last; ++y) {
            saturateRow(reinterpret_cast<std::uint32_t*>(bits + y * stride), bitmap.width(),
                        static_cast<float>(factor));
        }
    });
}

}  // namespace kestrio
