#include "imaging/filters/Denoise.h"

#include <memory>

#include "core/Simd.h"
#include "imaging/filters/EachRow.h"

namespace kestrio {

namespace {

constexpr int reach = 2;
// The sums of a run stay in the first-level cache.
constexpr int runLength = 512;

/// What has been summed up for each pixel of a run.
struct Sums {
    std::array<float, runLength> red, green, blue, weight;
};

struct FloatPixel {
    float red, green, blue, alpha;
};

[[gnu::always_inline]] inline FloatPixel widened(std::uint32_t pixel) {
    return {static_cast<float>(static_cast<std::int32_t>(pixel >> 16 & 255u)),
            static_cast<float>(static_cast<std::int32_t>(pixel >> 8 & 255u)),
            static_cast<float>(static_cast<std::int32_t>(pixel & 255u)),
            static_cast<float>(static_cast<std::int32_t>(pixel >> 24))};
}

/// Adds five neighbours in one row to each pixel; the first one's lie from `row` on.
KESTRIO_SIMD void addNeighbours(const std::uint32_t* __restrict row,
                                const std::uint32_t* __restrict centres, float inverseSquare,
                                Sums& __restrict sums, int count) {
    for (int x = 0; x < count; ++x) {
        const FloatPixel centre = widened(centres[x]);
        FloatPixel sum{0, 0, 0, 0};
        const auto add = [&](std::uint32_t neighbour) {
            const FloatPixel pixel = widened(neighbour);
            const float red = pixel.red - centre.red, green = pixel.green - centre.green;
            const float blue = pixel.blue - centre.blue, alpha = pixel.alpha - centre.alpha;
            // Differences between greys count as they are; an edge of alpha is always one.
            const float square =
                0.25f * (red * red + blue * blue) + 0.5f * (green * green) + alpha * alpha;
            const float near = std::max(1.0f - square * inverseSquare, 0.0f);
            const float weight = near * near;
            sum.red += pixel.red * weight;
            sum.green += pixel.green * weight;
            sum.blue += pixel.blue * weight;
            sum.alpha += weight;
        };
        add(row[x]);
        add(row[x + 1]);
        add(row[x + 2]);
        add(row[x + 3]);
        add(row[x + 4]);
        sums.red[x] += sum.red;
        sums.green[x] += sum.green;
        sums.blue[x] += sum.blue;
        sums.weight[x] += sum.alpha;
    }
}

KESTRIO_SIMD void writeMeans(const Sums& sums, std::uint32_t* __restrict pixels, int count) {
    for (int x = 0; x < count; ++x) {
        const std::uint32_t pixel = pixels[x];
        const float alpha = static_cast<std::int32_t>(pixel >> 24);
        const auto mean = [&](float sum) {
            const float inRange = std::min(sum / sums.weight[x], alpha);
            return static_cast<std::uint32_t>(static_cast<std::int32_t>(inRange + 0.5f));
        };
        pixels[x] = (pixel & 0xff000000u) | mean(sums.red[x]) << 16 | mean(sums.green[x]) << 8 |
                    mean(sums.blue[x]);
    }
}

/// A copy of a bitmap's pixels that continues beyond its edges.
class PaddedPixels {
  public:
    explicit PaddedPixels(const QImage& bitmap)
        : stride_(bitmap.width() + 2 * reach),
          pixels_(std::make_unique_for_overwrite<std::uint32_t[]>(stride_ *
                                                                  (bitmap.height() + 2 * reach))) {
        const int width = bitmap.width(), height = bitmap.height();
        parallelBands(height + 2 * reach, 16, [&](int first, int last) {
            for (int y = first; y < last; ++y) {
                const int inside = std::clamp(y - reach, 0, height - 1);
                const auto* from =
                    reinterpret_cast<const std::uint32_t*>(bitmap.constScanLine(inside));
                std::uint32_t* const to = pixels_.get() + y * stride_;
                std::fill_n(to, reach, from[0]);
                std::copy_n(from, width, to + reach);
                std::fill_n(to + reach + width, reach, from[width - 1]);
            }
        });
    }

    /// The pixel `x`, `y` of the bitmap; up to `reach` beyond its edges.
    const std::uint32_t* at(int x, int y) const {
        return pixels_.get() + (y + reach) * stride_ + x + reach;
    }

  private:
    std::ptrdiff_t stride_;
    std::unique_ptr<std::uint32_t[]> pixels_;
};

}  // namespace

void reduceNoise(QImage& bitmap, double noiseLevel) {
    if (bitmap.isNull() || !(noiseLevel > 0)) return;
    bitmap = inCanonicalFormat(std::move(bitmap));
    const PaddedPixels source(bitmap);
    // No level so small that its square vanishes.
    const double inLevels = std::clamp(noiseLevel, 1e-6, 1.0) * 255;
    const float inverseSquare = static_cast<float>(1 / (inLevels * inLevels));
    eachRow(bitmap, [&, width = bitmap.width()](std::uint32_t* row, int y) {
        Sums sums;
        for (int x = 0; x < width; x += runLength) {
            const int count = std::min(runLength, width - x);
            for (auto* sum : {&sums.red, &sums.green, &sums.blue, &sums.weight})
                sum->fill(0);
            for (int dy = -reach; dy <= reach; ++dy) {
                addNeighbours(source.at(x - reach, y + dy), source.at(x, y), inverseSquare, sums,
                              count);
            }
            writeMeans(sums, row + x, count);
        }
    });
}

}  // namespace kestrio
