#include "imaging/filters/ToneAdjust.h"

#include <array>
#include <mutex>
#include <vector>

#include "core/Simd.h"
#include "imaging/filters/EachRow.h"
#include "imaging/filters/LumaDistance.h"

namespace kestrio {

namespace {

// Beyond this everything is clamped anyway, and products stay finite.
constexpr double largestFactor = 1e6;

// A straight line over colours is one over premultiplied ones when its offset goes by the alpha.
KESTRIO_SIMD void mapRow(std::uint32_t* pixels, int count, float slope, float offset) {
    for (int x = 0; x < count; ++x) {
        const std::uint32_t pixel = pixels[x];
        const float alpha = static_cast<std::int32_t>(pixel >> 24);
        const float raised = alpha * offset;
        const auto mapped = [&](int shift) {
            const float channel = static_cast<std::int32_t>(pixel >> shift & 255u);
            const float inRange = std::min(std::max(channel * slope + raised, 0.0f), alpha);
            return static_cast<std::uint32_t>(static_cast<std::int32_t>(inRange + 0.5f)) << shift;
        };
        pixels[x] = (pixel & 0xff000000u) | mapped(0) | mapped(8) | mapped(16);
    }
}

KESTRIO_SIMD void vibrateRow(std::uint32_t* pixels, int count, float amount) {
    for (int x = 0; x < count; ++x) {
        const LumaPixel pixel(pixels[x]);
        const float span = std::max(std::max(pixel.red, pixel.green), pixel.blue) -
                           std::min(std::min(pixel.red, pixel.green), pixel.blue);
        const float grey = 1.0f - span / std::max(pixel.alpha, 1.0f);
        pixels[x] = pixel.stretched(1.0f + amount * grey);
    }
}

constexpr int levels = 256;
// One level more, for pixels that do not count.
using Histogram = std::array<qint64, levels + 1>;

KESTRIO_SIMD void lumaLevels(const std::uint32_t* pixels, std::uint16_t* __restrict lumas,
                             int count) {
    for (int x = 0; x < count; ++x) {
        const std::uint32_t pixel = pixels[x];
        const float alpha = static_cast<std::int32_t>(pixel >> 24);
        const float red = static_cast<std::int32_t>(pixel >> 16 & 255u);
        const float green = static_cast<std::int32_t>(pixel >> 8 & 255u);
        const float blue = static_cast<std::int32_t>(pixel & 255u);
        const float luma = red * 0.2125f + green * 0.7154f + blue * 0.0721f;
        const float level = std::min(luma * 255.0f / std::max(alpha, 1.0f), 255.0f) + 0.5f;
        const std::int32_t counted = static_cast<std::int32_t>(level);
        lumas[x] = static_cast<std::uint16_t>(alpha < 128.0f ? levels : counted);
    }
}

Histogram lumaHistogram(const QImage& bitmap) {
    Histogram all{};
    std::mutex mutex;
    parallelBands(bitmap.height(), 32, [&](int first, int last) {
        Histogram band{};
        std::vector<std::uint16_t> lumas(bitmap.width());
        for (int y = first; y < last; ++y) {
            lumaLevels(reinterpret_cast<const std::uint32_t*>(bitmap.constScanLine(y)),
                       lumas.data(), bitmap.width());
            for (const std::uint16_t luma : lumas)
                ++band[luma];
        }
        const std::lock_guard lock(mutex);
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i] += band[i];
    });
    return all;
}

constexpr double clippedShare = 0.005;
constexpr double leastSpan = 1.0 / 16;
constexpr double highestBlack = 0.25, lowestWhite = 0.75;

}  // namespace

void adjustContrast(QImage& bitmap, double factor) {
    if (bitmap.isNull() || factor == 1.0 || std::isnan(factor)) return;
    const float slope = static_cast<float>(std::clamp(factor, -largestFactor, largestFactor));
    eachRow(bitmap, [&, width = bitmap.width()](std::uint32_t* row, int) {
        mapRow(row, width, slope, 0.5f - 0.5f * slope);
    });
}

void adjustVibrance(QImage& bitmap, double amount) {
    if (bitmap.isNull() || amount == 0 || std::isnan(amount)) return;
    const float limited = static_cast<float>(std::clamp(amount, -largestFactor, largestFactor));
    eachRow(bitmap, [&, width = bitmap.width()](std::uint32_t* row, int) {
        vibrateRow(row, width, limited);
    });
}

ToneRange usedTones(const QImage& bitmap) {
    if (bitmap.isNull()) return {};
    const Histogram histogram = lumaHistogram(inCanonicalFormat(bitmap));
    const qint64 counted = qint64(bitmap.width()) * bitmap.height() - histogram[levels];
    if (counted == 0) return {};
    const double clipped = counted * clippedShare;
    int black = 0, white = levels - 1;
    for (qint64 below = histogram[black]; below <= clipped; below += histogram[black])
        ++black;
    for (qint64 above = histogram[white]; above <= clipped; above += histogram[white])
        --white;
    const ToneRange tones{black / 255.0, white / 255.0};
    if (tones.white - tones.black < leastSpan) return {};
    return {std::min(tones.black, highestBlack), std::max(tones.white, lowestWhite)};
}

void stretchTones(QImage& bitmap, ToneRange tones) {
    if (bitmap.isNull() || tones == ToneRange{} || !(tones.white > tones.black)) return;
    const double slope = std::min(1 / (tones.white - tones.black), largestFactor);
    const float offset = static_cast<float>(-tones.black * slope);
    eachRow(bitmap, [&, width = bitmap.width()](std::uint32_t* row, int) {
        mapRow(row, width, static_cast<float>(slope), offset);
    });
}

}  // namespace kestrio
