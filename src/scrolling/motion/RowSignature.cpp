#include "scrolling/motion/RowSignature.h"

#include <algorithm>

#include "core/Parallel.h"
#include "core/Simd.h"

namespace kestrio {

namespace {

constexpr int narrowestStrip = 24;
constexpr int mostStrips = 16;
constexpr int minimumRows = 64;
constexpr std::uint32_t colourBits = 0xffffff;

// Odd pseudo-random factors, one for each column of a strip (splitmix64).
std::vector<std::uint32_t> columnFactors(int count) {
    std::vector<std::uint32_t> factors(count);
    std::uint64_t state = 0;
    for (std::uint32_t& factor : factors) {
        std::uint64_t mixed = state += 0x9E3779B97F4A7C15u;
        mixed = (mixed ^ mixed >> 30) * 0xBF58476D1CE4E5B9u;
        mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EBu;
        factor = static_cast<std::uint32_t>(mixed >> 32) | 1u;
    }
    return factors;
}

KESTRIO_SIMD std::uint32_t hashOf(const std::uint32_t* __restrict pixels,
                                  const std::uint32_t* __restrict factors, int count) {
    std::uint32_t sum = 0;
    for (int x = 0; x < count; ++x)
        sum += (pixels[x] & colourBits) * factors[x];
    return sum;
}

// The low bits of a sum of products know little of the pixels' high bits.
std::uint32_t mixed(std::uint32_t hash) {
    hash ^= hash >> 16;
    hash *= 0x85EBCA6Bu;
    hash ^= hash >> 13;
    return hash;
}

}  // namespace

RowSignature::RowSignature(const QImage& frame)
    : height_(frame.height()),
      strips_(std::clamp(frame.width() / narrowestStrip, 1, mostStrips)),
      hashes_(std::size_t(height_) * strips_),
      keys_(hashes_.size()) {
    const int width = frame.width();
    const std::vector<std::uint32_t> factors = columnFactors(width / strips_ + 1);
    parallelBands(height_, minimumRows, [&](int first, int last) {
        for (int y = first; y < last; ++y) {
            const auto* row = reinterpret_cast<const std::uint32_t*>(frame.constScanLine(y));
            for (int strip = 0; strip < strips_; ++strip) {
                const int from = width * strip / strips_, to = width * (strip + 1) / strips_;
                hashes_[std::size_t(strip) * height_ + y] =
                    mixed(hashOf(row + from, factors.data(), to - from));
            }
        }
    });
    distinctKeys_.resize(keys_.size());
    parallelBands(strips_, 4, [&](int first, int last) {
        for (int strip = first; strip < last; ++strip) {
            const std::size_t top = std::size_t(strip) * height_;
            for (std::size_t i = top + 1; i < top + height_; ++i)
                keys_[i] = hashes_[i] == hashes_[i - 1] ? 0 : hashes_[i] | 1u;
            findRepeats(strip);
        }
    });
}

void RowSignature::findRepeats(int strip) {
    const std::uint32_t* own = keys(strip);
    std::vector<std::uint32_t> sorted(own, own + height_);
    std::ranges::sort(sorted);
    std::uint32_t* distinct = distinctKeys_.data() + std::size_t(strip) * height_;
    for (int y = 0; y < height_; ++y) {
        const auto same = std::ranges::equal_range(sorted, own[y]);
        distinct[y] = same.size() == 1 ? own[y] : 0;
    }
}

}  // namespace kestrio
