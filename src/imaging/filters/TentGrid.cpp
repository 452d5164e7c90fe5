#include "imaging/filters/TentGrid.h"

#include <bit>

#include "core/Parallel.h"
#include "core/Simd.h"

namespace kestrio {

namespace {

constexpr int cellMargin = 4;

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

/// Shrinks a plane from top to bottom, one row of cells after the other.
template <typename Sum>
class Shrinker {
  public:
    Shrinker(const Plane<std::uint8_t>& plane, int step, int cellColumns)
        : plane_(plane),
          step_(step),
          cellColumns_(cellColumns),
          padding_(2 * step * plane.channels),
          sum_(plane.rowSamples()),
          sumOfSums_(plane.rowSamples()),
          rising_(plane.rowSamples()),
          tents_(static_cast<std::size_t>(cellColumns + 1) * step * plane.channels) {}

    /// Takes in the `step` rows of a block; writes the cells of the tent that ends in it.
    void addBlock(int block, Fixed* cells) {
        sumBlock(block);
        joinHalves(sum_.data(), sumOfSums_.data(), rising_.data(), tents_.data() + padding_, step_,
                   plane_.rowSamples());
        if (!cells) return;
        pad();
        shrinkRow(tents_.data(), plane_.channels, step_, cells, cellColumns_);
    }

  private:
    void sumBlock(int block) {
        std::fill(sum_.begin(), sum_.end(), Sum(0));
        std::fill(sumOfSums_.begin(), sumOfSums_.end(), Sum(0));
        for (int k = 0; k < step_; ++k) {
            const std::int64_t y = std::int64_t(block) * step_ + k;
            const bool outside = y < 0 || y >= plane_.height;
            if (outside && plane_.edge == Edge::zero) {
                for (int i = 0; i < plane_.rowSamples(); ++i) {
                    sumOfSums_[i] = static_cast<Sum>(sumOfSums_[i] + sum_[i]);
                }
                continue;
            }
            const auto inside = std::clamp<std::int64_t>(y, 0, plane_.height - 1);
            addRow(plane_.samples + inside * plane_.stride, sum_.data(), sumOfSums_.data(),
                   plane_.rowSamples());
        }
    }

    void pad() {
        if (plane_.edge == Edge::zero) return;
        const int channels = plane_.channels;
        const std::size_t end = padding_ + plane_.rowSamples();
        for (int i = 0; i < padding_; ++i)
            tents_[i] = tents_[padding_ + i % channels];
        for (std::size_t i = end; i < tents_.size(); ++i)
            tents_[i] = tents_[i - channels];
    }

    const Plane<std::uint8_t>& plane_;
    const int step_;
    const int cellColumns_;
    const int padding_;
    std::vector<Sum> sum_, sumOfSums_, rising_, tents_;
};

template <typename Sum>
void shrinkBand(const Plane<std::uint8_t>& plane, int step, const Plane<Fixed>& grid, Fixed* cells,
                int first, int last) {
    Shrinker<Sum> shrinker(plane, step, grid.width);
    // The row of cells j, stored as row j + 1, joins the blocks j - 1 and j.
    shrinker.addBlock(first - 2, nullptr);
    for (int row = first; row < last; ++row) {
        shrinker.addBlock(row - 1, cells + row * grid.stride);
    }
}

}  // namespace

TentGrid::TentGrid(const Plane<std::uint8_t>& plane, int step)
    : step_(step),
      width_(plane.width / step + cellMargin),
      height_(plane.height / step + cellMargin),
      channels_(plane.channels),
      cells_(static_cast<std::size_t>(width_) * height_ * channels_) {
    // A tent's weights sum to step * step, which fits 16 bits up to 16.
    const auto shrink = step <= 16 ? shrinkBand<std::uint16_t> : shrinkBand<std::uint32_t>;
    parallelBands(height_, std::max(64 / step, 1), [&](int first, int last) {
        shrink(plane, step, cells(), cells_.data(), first, last);
    });
}

double TentGrid::addedVariance(int step) {
    return (1.0 - 1.0 / (double(step) * step)) / 6;
}

Plane<Fixed> TentGrid::cells() const {
    return {cells_.data(), std::ptrdiff_t(width_) * channels_, width_, height_, channels_,
            Edge::extended};
}

}  // namespace kestrio
