#include "scrolling/motion/Corners.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "core/Parallel.h"
#include "core/Simd.h"

namespace kestrio {

namespace {

constexpr int ringSize = 16;
constexpr int arcLength = 9;
constexpr int smallestCell = 16;
constexpr int smallestMargin = 16;

struct Offset {
    int x, y;
};

constexpr std::array<Offset, ringSize> ring = {{{0, -3},
                                                {1, -3},
                                                {2, -2},
                                                {3, -1},
                                                {3, 0},
                                                {3, 1},
                                                {2, 2},
                                                {1, 3},
                                                {0, 3},
                                                {-1, 3},
                                                {-2, 2},
                                                {-3, 1},
                                                {-3, 0},
                                                {-3, -1},
                                                {-2, -2},
                                                {-1, -3}}};

// Whether `mask`, a circle of 16 bits, has a run of nine.
bool hasArc(unsigned mask) {
    unsigned doubled = mask | mask << ringSize;
    unsigned run = doubled;
    for (int i = 1; i < arcLength; ++i)
        run &= doubled >> i;
    return run != 0;
}

// Marks what may be a corner in a row: of nine in a row on the circle, at least two lie on the
// compass points.
KESTRIO_SIMD void markCandidates(const std::uint8_t* row, std::ptrdiff_t stride, int threshold,
                                 std::uint8_t* __restrict marks, int count) {
    const std::uint8_t* above = row - 3 * stride;
    const std::uint8_t* below = row + 3 * stride;
    for (int x = 0; x < count; ++x) {
        const int brighter = row[x] + threshold, darker = row[x] - threshold;
        const int left = row[x - 3], right = row[x + 3], up = above[x], down = below[x];
        const int countOfBrighter =
            (up > brighter) + (down > brighter) + (left > brighter) + (right > brighter);
        const int countOfDarker =
            (up < darker) + (down < darker) + (left < darker) + (right < darker);
        marks[x] = static_cast<std::uint8_t>((countOfBrighter >= 2) | (countOfDarker >= 2));
    }
}

void keepStrongest(std::vector<Corner>& corners, int count) {
    std::ranges::stable_sort(corners, std::ranges::greater(), &Corner::score);
    if (corners.size() > std::size_t(count)) corners.resize(count);
}

struct CornerGrid {
    int margin, side, columns, rows;
};

// The strongest corners of the cells of one row of the grid.
std::vector<Corner> cornersOfGridRow(const GrayFrame& frame, const ScrollingMotionConfig& config,
                                     const CornerGrid& grid, int gridRow) {
    const int stride = std::max(config.detectionStride, 1);
    std::vector<std::vector<Corner>> cells(grid.columns);
    int y = std::max(gridRow * grid.side, grid.margin);
    y += (stride - (y - grid.margin) % stride) % stride;
    const int end = std::min((gridRow + 1) * grid.side, frame.height() - grid.margin);
    const int width = frame.width() - 2 * grid.margin;
    std::vector<std::uint8_t> marks(width);
    for (; y < end; y += stride) {
        markCandidates(frame.row(y) + grid.margin, frame.width(), config.fastThreshold,
                       marks.data(), width);
        for (int x = grid.margin; x < frame.width() - grid.margin; x += stride) {
            if (!marks[x - grid.margin]) continue;
            const int score = cornerScore(frame, x, y, config.fastThreshold);
            if (score > 0) cells[x / grid.side].push_back({x, y, score});
        }
    }
    std::vector<Corner> all;
    for (auto& cell : cells) {
        keepStrongest(cell, std::max(config.featuresPerCell, 1));
        all.insert(all.end(), cell.begin(), cell.end());
    }
    return all;
}

}  // namespace

int cornerScore(const GrayFrame& frame, int x, int y, int threshold) {
    const std::ptrdiff_t stride = frame.width();
    const std::uint8_t* centre = frame.row(y) + x;
    unsigned brighter = 0, darker = 0;
    int score = 0;
    for (int i = 0; i < ringSize; ++i) {
        const int difference = centre[ring[i].y * stride + ring[i].x] - *centre;
        brighter |= unsigned(difference > threshold) << i;
        darker |= unsigned(difference < -threshold) << i;
        score += std::max(std::abs(difference) - threshold, 0);
    }
    return hasArc(brighter) || hasArc(darker) ? score : 0;
}

std::vector<Corner> findCorners(const GrayFrame& frame, const ScrollingMotionConfig& config) {
    const int margin = std::max(config.briefRadius + 1, smallestMargin);
    if (2 * margin >= frame.width() || 2 * margin >= frame.height()) return {};
    const int side = std::max(config.featureCellSize, smallestCell);
    const CornerGrid grid{margin, side, (frame.width() + side - 1) / side,
                          (frame.height() + side - 1) / side};
    std::vector<std::vector<Corner>> gridRows(grid.rows);
    parallelBands(grid.rows, 2, [&](int first, int last) {
        for (int row = first; row < last; ++row)
            gridRows[row] = cornersOfGridRow(frame, config, grid, row);
    });
    std::vector<Corner> corners;
    for (const auto& row : gridRows)
        corners.insert(corners.end(), row.begin(), row.end());
    const int most = std::max(config.maximumFeatures, 1);
    if (corners.size() > std::size_t(most)) keepStrongest(corners, most);
    return corners;
}

}  // namespace kestrio
