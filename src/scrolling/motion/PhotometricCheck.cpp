#include "scrolling/motion/PhotometricCheck.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

#include "scrolling/motion/FrameDifference.h"

namespace kestrio {

namespace {

constexpr int fewestRows = 5;
constexpr int blockRows = 12, rowsForBlocks = 96, smallBlockHeight = 8;
constexpr int blockColumns = 8, columnsForBlocks = 128, smallBlockWidth = 16;
constexpr int sampleStep = 2;
constexpr double leastVariance = 36;
constexpr double mostDifferenceOfMatch = 12;
constexpr double keptShareOfBlocks = 0.8;
constexpr double errorRange = 96;

struct Block {
    double difference = 0;
    double variance = 0;
};

struct Comparison {
    const GrayFrame& previous;
    const GrayFrame& current;
    int dy;
    FixedBands bands;

    bool compares(int y) const {
        return y >= bands.top && y < current.height() - bands.bottom && y + dy >= bands.top &&
               y + dy < previous.height() - bands.bottom;
    }

    // Nothing where no sample of the block counts.
    std::optional<Block> block(QRect area) const {
        double difference = 0, sum = 0, squares = 0;
        int count = 0;
        for (int y = area.top(); y <= area.bottom(); y += sampleStep) {
            if (!compares(y)) continue;
            const std::uint8_t* now = current.row(y);
            const std::uint8_t* before = previous.row(y + dy);
            for (int x = area.left(); x <= area.right(); x += sampleStep, ++count) {
                const double value = before[x];
                difference += std::abs(value - now[x]);
                sum += value;
                squares += value * value;
            }
        }
        if (count == 0) return std::nullopt;
        const double mean = sum / count;
        return Block{difference / count, squares / count - mean * mean};
    }
};

}  // namespace

PhotometricCheck photometricCheck(const GrayFrame& previous, const GrayFrame& current, int dy,
                                  FixedBands bands) {
    const int rows = std::min(previous.height(), current.height()) - dy;
    if (rows < fewestRows) return {};
    const int width = std::min(previous.width(), current.width());
    const int blockHeight = rows < rowsForBlocks ? smallBlockHeight : rows / blockRows;
    const int blockWidth = width < columnsForBlocks ? smallBlockWidth : width / blockColumns;
    const Comparison comparison{previous, current, dy, bands};
    const QRect overlap(0, 0, width, rows);
    std::vector<double> all, textured;
    for (int y = 0; y < rows; y += blockHeight) {
        for (int x = 0; x < width; x += blockWidth) {
            const auto block = comparison.block(QRect(x, y, blockWidth, blockHeight) & overlap);
            if (!block) continue;
            all.push_back(block->difference);
            if (block->variance >= leastVariance) textured.push_back(block->difference);
        }
    }
    const std::vector<double>& blocks = textured.empty() ? all : textured;
    if (blocks.empty()) return {};
    const auto matched = std::ranges::count_if(
        blocks, [](double difference) { return difference <= mostDifferenceOfMatch; });
    PhotometricCheck check;
    check.matchedRatio = double(matched) / double(blocks.size());
    check.error = trimmedMean(blocks, keptShareOfBlocks);
    check.confidence = std::max(1 - check.error / errorRange, 0.0);
    return check;
}

}  // namespace kestrio
