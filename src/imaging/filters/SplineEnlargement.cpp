#include "imaging/filters/SplineEnlargement.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include "core/Parallel.h"

namespace kestrio {

namespace {

// In pixels; wide tiles write memory in its order.
constexpr int stripPixels = 64, widestTile = 8192, tileRows = 272;

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

// A block is what lies between two cells: pixels block * step - 1 to block * step + step - 2, which
// the cells stored as block to block + 3 determine.
int blockOf(int pixel, int step) {
    return (pixel + 1) / step;
}

QRect blocksUnder(const QRect& pixels, int step) {
    return {QPoint(blockOf(pixels.left(), step), blockOf(pixels.top(), step)),
            QPoint(blockOf(pixels.right(), step), blockOf(pixels.bottom(), step))};
}

/// Enlarges one tile of blocks from top to bottom, first along the rows, then across.
class Enlarger {
  public:
    Enlarger(ConvolvedRows<Fixed>& cells, const std::vector<SplineWeights>& weights,
             const QRect& tile, const PixelRegion& region, const ByteTarget& target)
        : cells_(cells),
          weights_(weights),
          step_(static_cast<int>(weights.size())),
          tile_(tile),
          region_(region),
          target_(target),
          phase_(std::size_t(tile.width()) * target.channels) {
        for (auto& row : wideRows_)
            row.resize(phase_.size() * step_);
    }

    void enlarge() {
        for (int row = tile_.top(); row < tile_.top() + 3; ++row)
            widen(row);
        for (int block = tile_.top(); block <= tile_.bottom(); ++block) {
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
            mixRows(neighbours, weights_[phase].data(), phase_.data(), tile_.width() * channels);
            (channels == 4 ? spread<4> : spread<1>)(phase_.data(), wide + phase * channels, step_,
                                                    tile_.width());
        }
    }

    void writeBlock(int block) {
        // Both axes' first block begins one pixel before the picture.
        const int left = tile_.left() * step_ - 1, end = left + tile_.width() * step_;
        for (int phase = 0; phase < step_; ++phase) {
            const int y = block * step_ + phase - 1;
            for (const PixelRegion::Run& run : region_.runs(y)) {
                const int x = std::max(run.left, left), runEnd = std::min(run.end, end);
                if (x < runEnd) writeRun(block, phase, x - left, QPoint(x, y), runEnd - x);
            }
        }
    }

    void writeRun(int block, int phase, int wideColumn, QPoint pixel, int width) {
        const Fixed* rows[4];
        for (int k = 0; k < 4; ++k)
            rows[k] = wideRows_[(block + k) % 4].data() + wideColumn * target_.channels;
        mixRowsToBytes(rows, weights_[phase].data(),
                       target_.bytes + pixel.y() * target_.stride + pixel.x() * target_.channels,
                       width * target_.channels);
    }

    ConvolvedRows<Fixed>& cells_;
    const std::vector<SplineWeights>& weights_;
    const int step_;
    const QRect tile_;
    const PixelRegion& region_;
    const ByteTarget target_;
    std::vector<Fixed> phase_;
    std::array<std::vector<Fixed>, 4> wideRows_;
};

}  // namespace

PixelRegion splineCells(const PixelRegion& region, int step, const QRect& allCells) {
    std::vector<QRect> cells;
    for (const QRect& rect : region.rects())
        cells.push_back(blocksUnder(rect, step).adjusted(0, 0, 3, 3));
    return PixelRegion(cells, allCells);
}

void enlargeBySplines(const Plane<Fixed>& cells, const GaussianKernel& kernel, int step,
                      const PixelRegion& region, const ByteTarget& target) {
    std::vector<QRect> blocks;
    for (const QRect& rect : region.rects())
        blocks.push_back(blocksUnder(rect, step));
    // Where parts of a strip lie near each other, starting again costs more than the rows between.
    const PixelRegion::Tiling tiling{std::max(stripPixels / step, 1),
                                     std::max(widestTile / step, 1), std::max(tileRows / step, 1),
                                     kernel.vertical.reach() / 2};
    const QRect allBlocks(0, 0, cells.width, cells.height);
    const std::vector<QRect> tiles = PixelRegion(blocks, allBlocks).tiles(tiling);
    std::vector<SplineWeights> weights;
    for (int phase = 0; phase < step; ++phase)
        weights.push_back(splineWeights(double(phase) / step));
    parallelBands(static_cast<int>(tiles.size()), 1, [&](int first, int last) {
        for (int i = first; i < last; ++i) {
            ConvolvedRows<Fixed> convolved(cells, kernel, tiles[i].left(), tiles[i].width() + 3,
                                           tiles[i].top());
            Enlarger(convolved, weights, tiles[i], region, target).enlarge();
        }
    });
}

}  // namespace kestrio
