#include "imaging/filters/SplineEnlargement.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include "core/Parallel.h"

namespace kestrio {

namespace {

// Four rows of so many samples stay in the first-level cache for all pixel rows between them.
constexpr int chunkSamples = 2048;

using SplineWeights = std::array<Weight, 4>;

/// The weights of four neighbouring cells for a place `t` of a cell past the second.
SplineWeights splineWeights(double t) {
    const auto weight = [](double sixths) {
        return static_cast<Weight>(std::lround(sixths / 6 * (1 << weightBits)));
    };
    const double u = 1 - t;
    const Weight first = weight(u * u * u);
    const Weight third = weight(1 + 3 * t * (1 + t - t * t));
    const Weight fourth = weight(t * t * t);
    const int second = (1 << weightBits) - first - third - fourth;
    return {first, static_cast<Weight>(second), third, fourth};
}

/// Copies pixel i of `from` to pixel i * step of `to`.
template <int channels>
void spread(const Fixed* from, Fixed* to, int step, int count) {
    for (int i = 0; i < count; ++i) {
        std::memcpy(to + std::ptrdiff_t(i) * step * channels, from + std::ptrdiff_t(i) * channels,
                    channels * sizeof(Fixed));
    }
}

/// Enlarges one band of cell rows after the other, first along the rows, then across. A block is
/// what lies between two cells: pixels block * step - 1 to block * step + step - 2, which the cells
/// stored as block to block + 3 determine.
class Enlarger {
  public:
    Enlarger(ConvolvedRows<Fixed>& cells, int step, const ByteTarget& target)
        : cells_(cells),
          step_(step),
          target_(target),
          columns_(target.width / step + 1),
          phase_(std::size_t(columns_) * target.channels) {
        for (int phase = 0; phase < step; ++phase) {
            weights_.push_back(splineWeights(double(phase) / step));
        }
        for (auto& row : wideRows_)
            row.resize(phase_.size() * step);
    }

    void enlargeBlocks(int first, int last) {
        for (int row = first; row < first + 3; ++row)
            widen(row);
        for (int block = first; block < last; ++block) {
            widen(block + 3);
            writeBlock(block);
        }
    }

  private:
    void widen(int row) {
        const Fixed* const cells = cells_.next();
        const int channels = target_.channels;
        Fixed* const wide = wideRows_[row % 4].data();
        const Fixed* neighbours[4] = {cells, cells + channels, cells + 2 * channels,
                                      cells + 3 * channels};
        for (int phase = 0; phase < step_; ++phase) {
            mixRows(neighbours, weights_[phase].data(), phase_.data(), columns_ * channels);
            (channels == 4 ? spread<4> : spread<1>)(phase_.data(), wide + phase * channels, step_,
                                                    columns_);
        }
    }

    void writeBlock(int block) {
        const int samples = target_.width * target_.channels;
        for (int start = 0; start < samples; start += chunkSamples) {
            const Fixed* rows[4];
            for (int k = 0; k < 4; ++k) {
                // The widened rows begin one pixel before the target's.
                rows[k] = wideRows_[(block + k) % 4].data() + target_.channels + start;
            }
            for (int phase = 0; phase < step_; ++phase) {
                const int y = block * step_ + phase - 1;
                if (y < 0 || y >= target_.height) continue;
                mixRowsToBytes(rows, weights_[phase].data(),
                               target_.bytes + y * target_.stride + start,
                               std::min(chunkSamples, samples - start));
            }
        }
    }

    ConvolvedRows<Fixed>& cells_;
    const int step_;
    const ByteTarget target_;
    const int columns_;
    std::vector<SplineWeights> weights_;
    std::vector<Fixed> phase_;
    std::array<std::vector<Fixed>, 4> wideRows_;
};

}  // namespace

void enlargeBySplines(const Plane<Fixed>& cells, const GaussianKernel& kernel, int step,
                      const ByteTarget& target) {
    parallelBands(target.height / step + 1, 4, [&](int first, int last) {
        ConvolvedRows<Fixed> convolved(cells, kernel, 0, cells.width, first);
        Enlarger(convolved, step, target).enlargeBlocks(first, last);
    });
}

}  // namespace kestrio
