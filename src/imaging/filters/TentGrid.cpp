#include "imaging/filters/TentGrid.h"

#include <bit>

#include "core/Parallel.h"
#include "core/Simd.h"

namespace kestrio {

namespace {

constexpr int cellMargin = 4;

// Processors fetch memory ahead along rows but not from row to row, which shows in narrow tiles.
constexpr int prefetchedBytes = 4096, cacheLine = 64;

// In pixels; wide tiles read memory in its order.
constexpr int stripPixels = 64, widestTile = 8192, tileRows = 272;

/// Adds a row to the running sum and the running sum to the sum of sums. After `step` rows x0, x1
/// ... the first holds x0 + x1 + ..., the second step * x0 + (step - 1) * x1 + ...: a tent's
/// falling half, and by subtraction its rising half, without a multiplication.
template <typename Sum>
[[gnu::always_inline]] inline void runSums(const std::uint8_t* row, Sum* __restrict sum,
                                           Sum* __restrict sumOfSums, int count) {
    for (int i = 0; i < count; ++i) {
        sum[i] = static_cast<Sum>(sum[i] + row[i]);
        sumOfSums[i] = static_cast<Sum>(sumOfSums[i] + sum[i]);
    }
}

KESTRIO_SIMD void addRow(const std::uint8_t* row, std::uint16_t* sum, std::uint16_t* sumOfSums,
                         int count) {
    runSums(row, sum, sumOfSums, count);
}

KESTRIO_SIMD void addRow(const std::uint8_t* row, std::uint32_t* sum, std::uint32_t* sumOfSums,
                         int count) {
    runSums(row, sum, sumOfSums, count);
}

/// tents = the rising half kept from the block before + this block's falling half; keeps this
/// block's rising half for the next call.
template <typename Sum>
[[gnu::always_inline]] inline void joinSums(const Sum* sum, const Sum* sumOfSums,
                                            Sum* __restrict rising, Sum* __restrict tents, int step,
                                            int count) {
    for (int i = 0; i < count; ++i) {
        tents[i] = static_cast<Sum>(rising[i] + sumOfSums[i] - sum[i]);
        rising[i] = static_cast<Sum>(sum[i] * static_cast<Sum>(step + 1) - sumOfSums[i]);
    }
}

KESTRIO_SIMD void joinHalves(const std::uint16_t* sum, const std::uint16_t* sumOfSums,
                             std::uint16_t* rising, std::uint16_t* tents, int step, int count) {
    joinSums(sum, sumOfSums, rising, tents, step, count);
}

KESTRIO_SIMD void joinHalves(const std::uint32_t* sum, const std::uint32_t* sumOfSums,
                             std::uint32_t* rising, std::uint32_t* tents, int step, int count) {
    joinSums(sum, sumOfSums, rising, tents, step, count);
}

/// The tents along one row, in the same way, each rounded to a cell.
template <int channels, typename Sum, typename WideSum>
[[gnu::always_inline]] inline void tentsAlongRow(const Sum* row, int step, Fixed* cells,
                                                 int count) {
    const int shift = 4 * std::countr_zero(static_cast<unsigned>(step)) - fixedBits;
    const WideSum half = shift > 0 ? WideSum(1) << (shift - 1) : 0;
    std::array<WideSum, channels> rising{};
    for (int cell = -1; cell < count; ++cell) {
        std::array<WideSum, channels> sum{}, sumOfSums{};
        for (int k = 0; k < step; ++k) {
            for (int c = 0; c < channels; ++c) {
                sum[c] += row[k * channels + c];
                sumOfSums[c] += sum[c];
            }
        }
        row += step * channels;
        for (int c = 0; c < channels; ++c) {
            const WideSum tent = rising[c] + sumOfSums[c] - sum[c];
            rising[c] = sum[c] * static_cast<WideSum>(step + 1) - sumOfSums[c];
            if (cell < 0) continue;
            cells[cell * channels + c] =
                static_cast<Fixed>(shift >= 0 ? (tent + half) >> shift : tent << -shift);
        }
    }
}

KESTRIO_SIMD void shrinkRow(const std::uint16_t* row, int channels, int step, Fixed* cells,
                            int count) {
    if (channels == 4) {
        tentsAlongRow<4, std::uint16_t, std::uint32_t>(row, step, cells, count);
    } else {
        tentsAlongRow<1, std::uint16_t, std::uint32_t>(row, step, cells, count);
    }
}

KESTRIO_SIMD void shrinkRow(const std::uint32_t* row, int channels, int step, Fixed* cells,
                            int count) {
    if (channels == 4) {
        tentsAlongRow<4, std::uint32_t, std::uint64_t>(row, step, cells, count);
    } else {
        tentsAlongRow<1, std::uint32_t, std::uint64_t>(row, step, cells, count);
    }
}

/// Shrinks some columns of a plane from top to bottom, one row of cells after the other.
template <typename Sum>
class Shrinker {
  public:
    /// Cells are counted as the grid stores them: cell i joins the blocks i - 2 and i - 1.
    Shrinker(const Plane<std::uint8_t>& plane, int step, int firstCell, int cellCount)
        : plane_(plane),
          step_(step),
          cellCount_(cellCount),
          firstPixel_(std::clamp((firstCell - 2) * step, 0, plane.width - 1)) {
        const int start = (firstCell - 2) * step, end = start + (cellCount + 1) * step;
        const int endPixel = std::clamp(end, firstPixel_ + 1, plane.width);
        // Cells beyond the right edge still need the pixel that they repeat.
        const int bufferStart = std::min(start, firstPixel_);
        cellsStart_ = (start - bufferStart) * plane.channels;
        pixelsStart_ = (firstPixel_ - bufferStart) * plane.channels;
        samples_ = (endPixel - firstPixel_) * plane.channels;
        sum_.resize(samples_);
        sumOfSums_.resize(samples_);
        rising_.resize(samples_);
        tents_.resize(std::size_t(std::max(end, endPixel) - bufferStart) * plane.channels);
    }

    /// Takes in the `step` rows of a block; writes the cells of the tent that ends in it.
    void addBlock(int block, Fixed* cells) {
        sumBlock(block);
        joinHalves(sum_.data(), sumOfSums_.data(), rising_.data(), tents_.data() + pixelsStart_,
                   step_, samples_);
        if (!cells) return;
        pad();
        shrinkRow(tents_.data() + cellsStart_, plane_.channels, step_, cells, cellCount_);
    }

  private:
    void sumBlock(int block) {
        std::fill(sum_.begin(), sum_.end(), Sum(0));
        std::fill(sumOfSums_.begin(), sumOfSums_.end(), Sum(0));
        for (int k = 0; k < step_; ++k) {
            const std::int64_t y = std::int64_t(block) * step_ + k;
            const bool outside = y < 0 || y >= plane_.height;
            if (outside && plane_.edge == Edge::zero) {
                for (int i = 0; i < samples_; ++i) {
                    sumOfSums_[i] = static_cast<Sum>(sumOfSums_[i] + sum_[i]);
                }
                continue;
            }
            const auto inside = std::clamp<std::int64_t>(y, 0, plane_.height - 1);
            if (samples_ < prefetchedBytes) prefetchRow(inside + step_);
            addRow(plane_.samples + inside * plane_.stride + firstPixel_ * plane_.channels,
                   sum_.data(), sumOfSums_.data(), samples_);
        }
    }

    void prefetchRow(std::int64_t y) const {
        if (y >= plane_.height) return;
        const auto* row = plane_.samples + y * plane_.stride + firstPixel_ * plane_.channels;
        for (int i = 0; i < samples_; i += cacheLine)
            __builtin_prefetch(row + i);
    }

    void pad() {
        if (plane_.edge == Edge::zero) return;
        const int channels = plane_.channels;
        for (int i = 0; i < pixelsStart_; ++i)
            tents_[i] = tents_[pixelsStart_ + i % channels];
        for (std::size_t i = pixelsStart_ + samples_; i < tents_.size(); ++i)
            tents_[i] = tents_[i - channels];
    }

    const Plane<std::uint8_t>& plane_;
    const int step_;
    const int cellCount_;
    const int firstPixel_;
    /// Where in `tents_` the first cell's blocks and the first pixel begin.
    int cellsStart_, pixelsStart_;
    int samples_;
    std::vector<Sum> sum_, sumOfSums_, rising_, tents_;
};

template <typename Sum>
void shrinkTile(const Plane<std::uint8_t>& plane, int step, const Plane<Fixed>& grid, Fixed* cells,
                const QRect& tile) {
    Shrinker<Sum> shrinker(plane, step, tile.left(), tile.width());
    shrinker.addBlock(tile.top() - 2, nullptr);
    for (int row = tile.top(); row <= tile.bottom(); ++row) {
        shrinker.addBlock(row - 1, cells + row * grid.stride + tile.left() * grid.channels);
    }
}

PixelRegion::Tiling tilingFor(int step) {
    return {std::max(stripPixels / step, 1), std::max(widestTile / step, 1),
            std::max(tileRows / step, 1), 1};
}

}  // namespace

TentGrid::TentGrid(const Plane<std::uint8_t>& plane, int step, const PixelRegion& needed)
    : step_(step),
      all_(allCells(plane, step)),
      channels_(plane.channels),
      cells_(std::make_unique_for_overwrite<Fixed[]>(std::size_t(all_.width()) * all_.height() *
                                                     channels_)) {
    // A tent's weights sum to step * step, which fits 16 bits up to 16.
    const auto shrink = step <= 16 ? shrinkTile<std::uint16_t> : shrinkTile<std::uint32_t>;
    const std::vector<QRect> tiles = needed.tiles(tilingFor(step));
    parallelBands(static_cast<int>(tiles.size()), 1, [&](int first, int last) {
        for (int i = first; i < last; ++i)
            shrink(plane, step, cells(), cells_.get(), tiles[i]);
    });
}

QRect TentGrid::allCells(const Plane<std::uint8_t>& plane, int step) {
    return {0, 0, plane.width / step + cellMargin, plane.height / step + cellMargin};
}

double TentGrid::addedVariance(int step) {
    return (1.0 - 1.0 / (double(step) * step)) / 6;
}

Plane<Fixed> TentGrid::cells() const {
    return {cells_.get(), std::ptrdiff_t(all_.width()) * channels_,
            all_.width(), all_.height(),
            channels_,    Edge::extended};
}

}  // namespace kestrio
