#include "imaging/filters/LanczosDoubling.h"

#include <array>
#include <numbers>
#include <numeric>
#include <vector>

#include "core/Parallel.h"
#include "core/Simd.h"
#include "imaging/Image.h"
#include "imaging/filters/PixelVectors.h"

namespace kestrio {

namespace {

constexpr int lobes = 3;
constexpr int taps = 2 * lobes;
constexpr int greatestSide = std::numeric_limits<int>::max() / 16;

using Weights = std::array<float, taps>;

/// Doubling puts two pixels a quarter of a pixel before and after the centre of each. These are the
/// weights of the pixels -3 to 2 in the first; the second has those of the pixels 3 to -2.
Weights quarterWeights() {
    std::array<double, taps> exact;
    for (int tap = 0; tap < taps; ++tap) {
        const double x = std::numbers::pi * (tap - lobes + 0.25);
        exact[tap] = std::sin(x) / x * std::sin(x / lobes) / (x / lobes);
    }
    const double sum = std::accumulate(exact.begin(), exact.end(), 0.0);
    Weights weights;
    for (int tap = 0; tap < taps; ++tap)
        weights[tap] = static_cast<float>(exact[tap] / sum);
    return weights;
}

/// For the pixels -3 to 3, the weight in all four channels of the first pixel and of the second.
using PairWeights = std::array<float, (taps + 1) * 8>;

PairWeights pairWeights(const Weights& weights) {
    PairWeights pairs{};
    for (int tap = 0; tap < taps; ++tap) {
        std::fill_n(&pairs[tap * 8], 4, weights[tap]);
        std::fill_n(&pairs[(taps - tap) * 8 + 4], 4, weights[tap]);
    }
    return pairs;
}

KESTRIO_SIMD void widen(const std::uint8_t* __restrict bytes, float* __restrict samples,
                        int count) {
    for (int i = 0; i < count; ++i)
        samples[i] = bytes[i];
}

KESTRIO_SIMD void doubleRow(const float* padded, const PairWeights& weights, float* doubled,
                            int width) {
    for (int x = 0; x < width; ++x) {
        Float8 sum{};
        for (int tap = 0; tap <= taps; ++tap) {
            Float4 pixel;
            std::memcpy(&pixel, padded + std::ptrdiff_t(x + tap) * 4, sizeof pixel);
            sum += pixelTwice(pixel) * loadFloats(weights.data() + std::ptrdiff_t(tap) * 8);
        }
        std::memcpy(doubled + std::ptrdiff_t(x) * 8, &sum, sizeof sum);
    }
}

using Rows = std::array<const float*, taps>;

KESTRIO_SIMD void sumRows(const Rows& rows, const Weights& weights, std::int32_t* channels,
                          int count) {
    for (int i = 0; i < count; i += 8) {
        Float8 sum{};
        for (int tap = 0; tap < taps; ++tap)
            sum += loadFloats(rows[tap] + i) * weights[tap];
        const Int8 pixels = roundedPixels(premultipliedRange(sum));
        std::memcpy(channels + i, &pixels, sizeof pixels);
    }
}

/// Rows of a bitmap at twice their width, kept while rows around them need them.
class DoubledRows {
  public:
    DoubledRows(const QImage& bitmap, const PairWeights& weights)
        : bitmap_(bitmap), weights_(weights), padded_((bitmap.width() + taps) * std::size_t(4)) {
        kept_.fill(-1);
        for (auto& row : rows_)
            row.resize(std::size_t(bitmap.width()) * 8);
    }

    /// Valid until rows more than six away are asked for.
    const float* row(int y) {
        y = std::clamp(y, 0, bitmap_.height() - 1);
        const std::size_t slot = y % rows_.size();
        if (std::exchange(kept_[slot], y) != y) load(y, rows_[slot].data());
        return rows_[slot].data();
    }

  private:
    void load(int y, float* doubled) {
        const int width = bitmap_.width();
        float* const inside = padded_.data() + lobes * 4;
        widen(bitmap_.constScanLine(y), inside, width * 4);
        for (int i = 1; i <= lobes; ++i) {
            std::copy_n(inside, 4, inside - i * 4);
            std::copy_n(inside + (width - 1) * 4, 4, inside + (width - 1 + i) * 4);
        }
        doubleRow(padded_.data(), weights_, doubled, width);
    }

    const QImage& bitmap_;
    const PairWeights& weights_;
    std::vector<float> padded_;
    std::array<std::vector<float>, 8> rows_;
    std::array<int, 8> kept_;
};

}  // namespace

QImage doubledByLanczos(const QImage& bitmap) {
    if (bitmap.isNull() || std::max(bitmap.width(), bitmap.height()) > greatestSide) return {};
    const QImage source = inCanonicalFormat(bitmap);
    QImage doubled(source.size() * 2, source.format());
    if (doubled.isNull()) return {};
    const Weights before = quarterWeights();
    Weights after;
    std::reverse_copy(before.begin(), before.end(), after.begin());
    const PairWeights pairs = pairWeights(before);
    const int samples = doubled.width() * 4;
    uchar* const bits = doubled.bits();
    const qsizetype stride = doubled.bytesPerLine();
    // Each band loads six rows beyond its own.
    parallelBands(doubled.height(), 64, [&](int first, int last) {
        DoubledRows doubledRows(source, pairs);
        std::vector<std::int32_t> channels(samples);
        for (int y = first; y < last; ++y) {
            Rows rows;
            for (int tap = 0; tap < taps; ++tap)
                rows[tap] = doubledRows.row(y / 2 - lobes + y % 2 + tap);
            sumRows(rows, y % 2 ? after : before, channels.data(), samples);
            packBytes(channels.data(), bits + y * stride, samples);
        }
    });
    return doubled;
}

}  // namespace kestrio
