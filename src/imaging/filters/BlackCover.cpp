#include "imaging/filters/BlackCover.h"

#include "core/Clamp.h"
#include "core/Parallel.h"
#include "core/Simd.h"
#include "imaging/Image.h"

namespace kestrio {

namespace {

constexpr std::uint32_t black = 0xff000000;

// 16 binary digits after the point; 255 of them still fit 24 bits.
constexpr std::uint32_t one = 1 << 16;

/// What lies above black shows through as `keep`.
KESTRIO_SIMD void darken(std::uint32_t* __restrict pixels, int count, std::uint32_t keep) {
    const std::uint32_t added = (one - keep) * 255 + one / 2;
    for (int x = 0; x < count; ++x) {
        const std::uint32_t pixel = pixels[x];
        const auto kept = [&](int shift) {
            return ((pixel >> shift & 255u) * keep + one / 2) >> 16 << shift;
        };
        const std::uint32_t alpha = ((pixel >> 24) * keep + added) >> 16;
        pixels[x] = kept(0) | kept(8) | kept(16) | alpha << 24;
    }
}

}  // namespace

void coverWithBlack(QImage& bitmap, double opacity, const PixelRegion& region) {
    const PixelRegion inside = region.clipped(bitmap.rect());
    if (inside.isEmpty() || !(opacity > 0)) return;
    bitmap = inCanonicalFormat(std::move(bitmap));
    const auto keep = static_cast<std::uint32_t>(std::lround((1 - clampedOr(opacity, 0, 1)) * one));
    uchar* const bits = bitmap.bits();
    const qsizetype stride = bitmap.bytesPerLine();
    parallelBands(bitmap.height(), 64, [&](int first, int last) {
        for (int y = first; y < last; ++y) {
            auto* const pixels = reinterpret_cast<std::uint32_t*>(bits + y * stride);
            for (const PixelRegion::Run& run : inside.runs(y)) {
                if (keep == 0) {
                    std::fill(pixels + run.left, pixels + run.end, black);
                } else {
                    darken(pixels + run.left, run.end - run.left, keep);
                }
            }
        }
    });
}

}  // namespace kestrio
