#include "imaging/filters/PixelRegion.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>

namespace kestrio {
namespace {

constexpr QRect limit(-7, 3, 60, 50);

std::vector<QRect> randomRects(int count, int longest) {
    std::mt19937 random(count + 100 * longest);
    const auto upTo = [&](int most) { return int(random() % (most + 1)); };
    std::vector<QRect> rects;
    for (int i = 0; i < count; ++i) {
        rects.emplace_back(upTo(90) - 20, upTo(80) - 10, upTo(longest), upTo(longest));
    }
    return rects;
}

/// How many of the rectangles hold each pixel of the limit, row by row.
std::vector<int> counts(const std::vector<QRect>& rects) {
    std::vector<int> counts;
    for (int y = limit.top(); y <= limit.bottom(); ++y) {
        for (int x = limit.left(); x <= limit.right(); ++x) {
            counts.push_back(int(std::count_if(rects.begin(), rects.end(), [&](const QRect& rect) {
                return rect.isValid() && rect.contains(x, y);
            })));
        }
    }
    return counts;
}

std::vector<int> countsByRuns(const PixelRegion& region) {
    std::vector<int> counts;
    for (int y = limit.top(); y <= limit.bottom(); ++y) {
        for (int x = limit.left(); x <= limit.right(); ++x) {
            int count = 0;
            for (const PixelRegion::Run& run : region.runs(y))
                count += run.left <= x && x < run.end;
            counts.push_back(count);
        }
    }
    return counts;
}

TEST(PixelRegion, HoldsEachCoveredPixelOnce) {
    for (const auto& [count, longest] : {std::pair(0, 9), {1, 40}, {5, 30}, {40, 9}, {300, 70}}) {
        const std::vector<QRect> rects = randomRects(count, longest);
        const PixelRegion region(rects, limit);
        std::vector<int> once = counts(rects);
        for (int& covered : once)
            covered = std::min(covered, 1);
        EXPECT_EQ(countsByRuns(region), once) << count;
        EXPECT_EQ(counts(region.rects()), once) << count;
        EXPECT_TRUE(region.runs(limit.top() - 1).empty());
        EXPECT_TRUE(region.runs(limit.bottom() + 1).empty());
    }
}

TEST(PixelRegion, TilesHoldItAndKeepTheirLimits) {
    const QRect grid(0, 0, 60, 50);
    for (const PixelRegion::Tiling tiling :
         {PixelRegion::Tiling{8, 8, 6, 2}, {7, 21, 50, 0}, {1, 1000, 1, 9}, {64, 64, 64, 64}}) {
        for (int count : {1, 7, 60}) {
            const PixelRegion region(randomRects(count, 12), grid);
            const std::vector<QRect> tiles = region.tiles(tiling);
            for (const QRect& tile : tiles) {
                EXPECT_LE(tile.width(), tiling.greatestWidth);
                EXPECT_LE(tile.height(), tiling.height);
            }
            const std::vector<int> covered = counts(region.rects()), tiled = counts(tiles);
            for (std::size_t i = 0; i < covered.size(); ++i)
                ASSERT_TRUE(tiled[i] <= 1 && tiled[i] >= covered[i]) << i;
        }
    }
}

TEST(PixelRegion, WildAndInvalidRectanglesAreCutOrIgnored) {
    const QRect wild(QPoint(INT_MIN / 2, INT_MIN / 2), QPoint(INT_MAX / 2 - 1, INT_MAX / 2 - 1));
    EXPECT_EQ(PixelRegion({wild}, limit).rects(), std::vector{limit});
    EXPECT_TRUE(PixelRegion({QRect(5, 5, -3, 4), QRect(), QRect(500, 5, 3, 4)}, limit).isEmpty());
    EXPECT_TRUE(PixelRegion({wild}, QRect()).isEmpty());
}

}  // namespace
}  // namespace kestrio
