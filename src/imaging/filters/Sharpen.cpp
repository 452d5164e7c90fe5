#include "imaging/filters/Sharpen.h"

#include "core/Clamp.h"
#include "core/Simd.h"
#include "imaging/filters/EachRow.h"
#include "imaging/filters/GaussianBlur.h"

namespace kestrio {

namespace {

constexpr double sigma = 1.5;

// Beyond this everything is clamped anyway, and products stay finite.
constexpr double largestSharpness = 1e6;

[[gnu::always_inline]] inline float lumaOf(std::uint32_t pixel) {
    return static_cast<std::int32_t>(pixel >> 16 & 255u) * 0.2125f +
           static_cast<std::int32_t>(pixel >> 8 & 255u) * 0.7154f +
           static_cast<std::int32_t>(pixel & 255u) * 0.0721f;
}

KESTRIO_SIMD void sharpenRow(std::uint32_t* __restrict pixels,
                             const std::uint32_t* __restrict blurred, int count, float sharpness,
                             float threshold) {
    for (int x = 0; x < count; ++x) {
        const std::uint32_t pixel = pixels[x], around = blurred[x];
        const float alpha = static_cast<std::int32_t>(pixel >> 24);
        const float alphaAround = static_cast<std::int32_t>(around >> 24);
        // What the luma would be if the pixel's colour were that of its surroundings.
        const float expected = lumaOf(around) * (alpha / std::max(alphaAround, 1.0f));
        const float detail = lumaOf(pixel) - expected;
        const float small = std::min(std::max(detail, -threshold), threshold);
        const float added = (detail - small) * sharpness;
        const auto sharpened = [&](int shift) {
            const float channel = static_cast<std::int32_t>(pixel >> shift & 255u);
            const float inRange = std::min(std::max(channel + added, 0.0f), alpha);
            return static_cast<std::uint32_t>(static_cast<std::int32_t>(inRange + 0.5f)) << shift;
        };
        pixels[x] = (pixel & 0xff000000u) | sharpened(0) | sharpened(8) | sharpened(16);
    }
}

}  // namespace

void sharpenLuminance(QImage& bitmap, double sharpness, double threshold) {
    if (bitmap.isNull() || !(sharpness > 0)) return;
    bitmap = inCanonicalFormat(std::move(bitmap));
    QImage blurred = bitmap;
    gaussianBlur(blurred, sigma);
    const float strength = static_cast<float>(std::min(sharpness, largestSharpness));
    const float left = static_cast<float>(clampedOr(threshold, 0, 1) * 255);
    eachRow(bitmap, [&, width = bitmap.width()](std::uint32_t* row, int y) {
        const auto* around = reinterpret_cast<const std::uint32_t*>(blurred.constScanLine(y));
        sharpenRow(row, around, width, strength, left);
    });
}

}  // namespace kestrio
