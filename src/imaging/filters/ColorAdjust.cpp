#include "imaging/filters/ColorAdjust.h"

#include "core/Parallel.h"
#include "core/Simd.h"
#include "imaging/Image.h"
#include "imaging/filters/LumaDistance.h"

namespace kestrio {

namespace {

// Luma and the distance from it are linear in the channels, so scaling all channels by alpha scales
// the result by alpha too: premultiplied pixels need no division, only a clamp to their own alpha.
KESTRIO_SIMD void saturateRow(std::uint32_t* pixels, int count, float factor) {
    for (int x = 0; x < count; ++x)
        pixels[x] = LumaPixel(pixels[x]).stretched(factor);
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
