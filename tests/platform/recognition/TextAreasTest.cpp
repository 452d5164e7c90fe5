#include "platform/linux/recognition/TextAreas.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kestrio {
namespace {

TEST(TextAreas, EveryLineOfATallPictureIsWholeInATileThatKeepsIt) {
    const QRect region(0, 0, 1440, 20000);
    const SearchPlan plan = searchPlan(region);
    ASSERT_GT(plan.tiles.size(), 1U);
    for (int top = 0; top + 40 <= region.height(); top += 7) {
        const QRect line(100, top, 600, 40);
        EXPECT_TRUE(std::ranges::any_of(plan.tiles, [&](const QRect& tile) {
            return tile.contains(line) && !isCutByTile(line, tile, region);
        })) << top;
    }
    for (const QRect& tile : plan.tiles) {
        if (tile.bottom() == region.bottom()) continue;
        const QRect half(100, tile.bottom() - 15, 600, 16);
        EXPECT_TRUE(isCutByTile(half, tile, region)) << "read by the next tile";
    }
    EXPECT_FALSE(isCutByTile(QRect(0, 0, 600, 16), plan.tiles.front(), region))
        << "an edge of the picture cuts for good";
}

TEST(TextAreas, PartsOfALineAreJoinedAndNeighboursAreNot) {
    const QRect left(10, 100, 200, 20);
    const QRect right(211, 101, 150, 19);
    const QRect column(500, 100, 100, 20);
    const QRect below(10, 124, 200, 20);
    const auto joined = joinedAreas({column, right, below, left});
    ASSERT_EQ(joined.size(), 3U);
    EXPECT_TRUE(std::ranges::count(joined, left | right));
    EXPECT_TRUE(std::ranges::count(joined, column));
    EXPECT_TRUE(std::ranges::count(joined, below));
}

TEST(TextAreas, RowsAreReadFromTheLeftAndFromTheTop) {
    std::vector<RecognizedLine> lines(4);
    lines[0].rect = QRectF(300, 12, 50, 14);
    lines[1].rect = QRectF(10, 40, 50, 14);
    lines[2].rect = QRectF(10, 10, 50, 14);
    lines[3].rect = QRectF(150, 11, 50, 14);
    sortForReading(lines);
    std::vector<double> places;
    for (const RecognizedLine& line : lines)
        places.push_back(line.rect.top() * 1000 + line.rect.left());
    EXPECT_EQ(places, std::vector<double>({10010, 11150, 12300, 40010}));
}

}  // namespace
}  // namespace kestrio
