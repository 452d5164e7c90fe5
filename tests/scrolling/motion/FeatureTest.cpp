#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdlib>

#include "scrolling/motion/BriefPairs.h"
#include "scrolling/motion/Features.h"
#include "support/NoisePicture.h"
#include "support/ScrolledFrames.h"

namespace kestrio {
namespace {

// The circle of a corner, walked twice as the definition says.
int plainCornerScore(const GrayFrame& frame, int x, int y, int threshold) {
    constexpr int ring[16][2] = {{0, -3}, {1, -3},  {2, -2},  {3, -1}, {3, 0},  {3, 1},
                                 {2, 2},  {1, 3},   {0, 3},   {-1, 3}, {-2, 2}, {-3, 1},
                                 {-3, 0}, {-3, -1}, {-2, -2}, {-1, -3}};
    const auto difference = [&](int i) {
        return int(frame.at(x + ring[i % 16][0], y + ring[i % 16][1])) - int(frame.at(x, y));
    };
    for (const int sign : {1, -1}) {
        int run = 0;
        for (int i = 0; i < 32; ++i) {
            run = sign * difference(i) > threshold ? run + 1 : 0;
            if (run < 9) continue;
            int score = 0;
            for (int each = 0; each < 16; ++each)
                score += std::max(std::abs(difference(each)) - threshold, 0);
            return score;
        }
    }
    return 0;
}

GrayFrame textFrame(int y = 300) {
    const ScrolledFrames frames(ScrollingPage{QSize(800, 2400), 0, 0, 3}, 600);
    return makeGrayFrame(frames.at(y), 840);
}

TEST(BriefPairsTest, AreThoseOfTheFixedSequence) {
    const auto& pairs = briefPairs();
    EXPECT_EQ(pairs[0], (BriefPair{2, -5, -4, 9}));
    EXPECT_EQ(pairs[1], (BriefPair{-9, 12, -7, -6}));
    EXPECT_EQ(pairs[2], (BriefPair{1, -2, 4, 10}));
    EXPECT_EQ(pairs[3], (BriefPair{-3, 7, -2, 8}));
    EXPECT_EQ(pairs[255], (BriefPair{1, -5, -8, -9}));
    for (const BriefPair& pair : pairs)
        EXPECT_FALSE(pair.ax == pair.bx && pair.ay == pair.by);
}

TEST(CornersTest, ScoreAsTheDefinitionWalksTheRing) {
    const GrayFrame text = textFrame();
    const GrayFrame noise = makeGrayFrame(noisePicture(QSize(300, 200), QImage::Format_RGB32), 840);
    for (const GrayFrame* frame : {&text, &noise}) {
        int corners = 0;
        for (int y = 3; y < frame->height() - 3; ++y) {
            for (int x = 3; x < frame->width() - 3; ++x) {
                const int score = cornerScore(*frame, x, y, 18);
                ASSERT_EQ(score, plainCornerScore(*frame, x, y, 18)) << x << ", " << y;
                corners += score > 0;
            }
        }
        EXPECT_GT(corners, 50);
    }
}

TEST(CornersTest, AreTheStrongestOfEachCellInsideTheMargin) {
    const GrayFrame frame = textFrame();
    ScrollingMotionConfig config;
    const std::vector<Corner> corners = findCorners(frame, config);
    ASSERT_GT(corners.size(), 60u);
    std::vector<int> perCell(400);
    for (const Corner& corner : corners) {
        EXPECT_TRUE(
            QRect(16, 16, frame.width() - 32, frame.height() - 32).contains(corner.x, corner.y));
        EXPECT_EQ((corner.x - 16) % 2 + (corner.y - 16) % 2, 0);
        EXPECT_LE(++perCell[corner.y / 48 * 30 + corner.x / 48], config.featuresPerCell);
    }
    config.maximumFeatures = 40;
    const std::vector<Corner> strongest = findCorners(frame, config);
    ASSERT_EQ(strongest.size(), 40u);
    const int weakest = strongest.back().score;
    EXPECT_EQ(std::ranges::count_if(
                  corners, [weakest](const Corner& corner) { return corner.score > weakest; }),
              std::ranges::count_if(
                  strongest, [weakest](const Corner& corner) { return corner.score > weakest; }));
    const GrayFrame low = makeGrayFrame(noisePicture(QSize(300, 32), QImage::Format_RGB32), 840);
    EXPECT_TRUE(findCorners(low, {}).empty());
}

TEST(CornersTest, MissNoneThatScores) {
    ScrollingMotionConfig config;
    config.featuresPerCell = config.maximumFeatures = 1 << 20;
    const QSize odd(331, 207);
    for (const GrayFrame& frame :
         {textFrame(), makeGrayFrame(noisePicture(odd, QImage::Format_RGB32), 840)}) {
        std::size_t expected = 0;
        for (int y = 16; y < frame.height() - 16; y += 2)
            for (int x = 16; x < frame.width() - 16; x += 2)
                expected += cornerScore(frame, x, y, config.fastThreshold) > 0;
        EXPECT_GT(expected, 60u);
        EXPECT_EQ(findCorners(frame, config).size(), expected);
    }
}

int distanceOf(const Feature& a, const Feature& b) {
    int distance = 0;
    for (int i = 0; i < 4; ++i)
        distance += std::popcount(a.descriptor[i] ^ b.descriptor[i]);
    return distance;
}

TEST(FeatureMatchingTest, FindsWhatComparingAllWithAllFinds) {
    const ScrollingMotionConfig config;
    const auto previous = findFeatures(textFrame(300), config);
    const auto current = findFeatures(textFrame(377), config);
    const auto matches = matchFeatures(previous, current, config);
    ASSERT_GT(matches.size(), 30u);

    std::size_t next = 0;
    for (int i = 0; i < int(previous.size()); ++i) {
        std::vector<std::pair<int, int>> candidates;  // distance, index
        for (int j = 0; j < int(current.size()); ++j)
            if (std::abs(current[j].x - previous[i].x) <= config.maximumHorizontalOffset)
                candidates.emplace_back(distanceOf(previous[i], current[j]), j);
        std::ranges::sort(candidates);
        if (candidates.size() < 2 || candidates[0].first > config.maximumDescriptorDistance)
            continue;
        if (candidates[0].first > config.descriptorRatio * candidates[1].first) continue;
        const Feature& best = current[candidates[0].second];
        const bool isMutual = std::ranges::none_of(previous, [&](const Feature& other) {
            return std::abs(best.x - other.x) <= config.maximumHorizontalOffset &&
                   distanceOf(other, best) < candidates[0].first;
        });
        if (!isMutual) continue;
        if (next < matches.size() && matches[next].previousIndex == i) {
            EXPECT_EQ(matches[next].distance, candidates[0].first);
            EXPECT_EQ(matches[next].dy, previous[i].y - current[matches[next].currentIndex].y);
            ++next;
        } else {
            // Only an equally close feature that comes first may take it.
            EXPECT_TRUE(std::ranges::any_of(
                previous.begin(), previous.begin() + i, [&](const Feature& other) {
                    return distanceOf(other, best) == candidates[0].first;
                }));
        }
    }
    EXPECT_EQ(next, matches.size());
}

}  // namespace
}  // namespace kestrio
