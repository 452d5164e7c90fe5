#include "annotation/drawing/AlignmentGuideService.h"
#include "annotation/drawing/BrushStrokeOptimizer.h"
#include "annotation/drawing/DrawingConstraintService.h"
#include "annotation/model/Geometry.h"
#include "core/Stopwatch.h"

#include <gtest/gtest.h>

#include <numbers>
#include <random>

namespace kestrio {
namespace {

using Points = BrushStrokeOptimizer::Points;

TEST(DrawingConstraints, DirectionsAndSquares) {
    const std::tuple<QPointF, QPointF, QPointF> turns[] = {
        {{0, 0}, {10, 1}, {std::sqrt(101), 0}},
        {{5, 5}, {5.5, 5.7}, {5.5, 5.7}},
        {{0, 0}, {1, 0}, {1, 0}},
        {{1, 1}, {-2, -3}, {1 - 5 * std::numbers::sqrt2 / 2, 1 - 5 * std::numbers::sqrt2 / 2}},
        {{0, 0}, {-1, 20}, {0, std::sqrt(401)}},
    };
    for (const auto& [start, end, expected] : turns) {
        EXPECT_NEAR(distance(DrawingConstraintService::constrainTo45Degrees(start, end), expected),
                    0, 1e-12);
    }
    const std::tuple<QPointF, QPointF, QRectF> squares[] = {
        {{10, 10}, {4, 20}, {0, 10, 10, 10}},
        {{10, 10}, {10, 4}, {10, 4, 6, 6}},
        {{10, 10}, {7, 9}, {7, 7, 3, 3}},
        {{1, 2}, {1, 2}, {1, 2, 0, 0}},
    };
    for (const auto& [start, end, expected] : squares)
        EXPECT_TRUE(identical(DrawingConstraintService::squareRect(start, end), expected));
}

TEST(DrawingConstraints, CommonSizes) {
    const std::tuple<double, double, bool> rows[] = {
        {1200, 3, true}, {1050, 3, false}, {553, 3, false}, {503, 3, true},   {503.1, 3, false},
        {153, 3, true},  {110, 3, false},  {2003, 3, true}, {2100, 3, false}, {7, 3, true},
    };
    for (const auto& [value, threshold, expected] : rows)
        EXPECT_EQ(DrawingConstraintService::isCommonSize(value, threshold), expected) << value;
}

TEST(AlignmentGuides, AreFoundInOrderAndOnce) {
    const QUuid own = QUuid::createUuid();
    const QUuid first = QUuid::createUuid();
    const QUuid second = QUuid::createUuid();
    const std::vector<GuideSource> sources = {
        {own, {100, 100, 50, 50}}, {first, {108, 300, 10, 10}}, {second, {108.05, 400, 10, 10}}};
    const auto all = AlignmentGuideService::guides({100, 100, 40, 40}, own, sources);
    const auto line = [](double x, QUuid id, GuideType type) {
        return AlignmentGuide{x, GuideOrientation::vertical, id, type};
    };
    // 108 is 8 from 100; 113 is 7 from the middle 120, 118 is 2 from it. 108.05 is too far from
    // 100.
    const std::vector<AlignmentGuide> expected = {
        line(108, first, GuideType::leading), line(113, first, GuideType::center),
        line(118, first, GuideType::trailing), line(113.05, second, GuideType::center),
        line(118.05, second, GuideType::trailing)};
    EXPECT_EQ(all, expected);
    EXPECT_EQ(AlignmentGuideService::unique(all),
              std::vector<AlignmentGuide>(all.begin(), all.begin() + 3));
    const auto thin = AlignmentGuideService::guides({0, 0, 4, 4}, own, {{first, {0, 0, 4, 4}}});
    EXPECT_EQ(thin.size(), 18u);
}

TEST(AlignmentGuides, SnapTheNearestLineTheLastGuideWinning) {
    const auto horizontal = [](double y) {
        return AlignmentGuide{y, GuideOrientation::horizontal, {}, GuideType::leading};
    };
    const auto vertical = [](double x) {
        return AlignmentGuide{x, GuideOrientation::vertical, {}, GuideType::leading};
    };
    const std::tuple<QRectF, std::vector<AlignmentGuide>, QPointF> rows[] = {
        {{0, 10, 5, 16}, {horizontal(14)}, {0, 14}},  // 4 from top and from the middle
        {{0, 10, 5, 16}, {horizontal(22)}, {0, 14}},  // 4 from the middle and from the bottom
        {{0, 10, 5, 40}, {horizontal(58)}, {0, 18}},  // exactly 8 from the bottom
        {{0, 10, 5, 40}, {horizontal(58.01)}, {0, 10}},
        {{3, 0, 40, 40}, {vertical(5), vertical(20), horizontal(-2)}, {0, -2}},
    };
    for (const auto& [rect, guides, origin] : rows) {
        const QRectF snapped = AlignmentGuideService::snapped(rect, guides);
        EXPECT_TRUE(identical(snapped, QRectF(origin, rect.size())))
            << snapped.x() << " " << snapped.y();
    }
}

TEST(BrushStroke, DecimationFollowsTheSpeed) {
    struct Row {
        double spacing;
        double seconds;
        double keptSpacing;
    };
    const Row rows[] = {
        {5, 0.005, 20},      // 1000 points per second
        {1, 0.1, 2},         // 10 points per second
        {1, 0, 2},           // time stands still
        {1, 1.0 / 290, 11},  // 10.55 are required
    };
    for (const Row& row : rows) {
        Points points;
        std::vector<double> times;
        for (int i = 0; i < 200; ++i) {
            points.emplace_back(i * row.spacing, 0);
            times.push_back(1000 + i * row.seconds);
        }
        const Points kept = BrushStrokeOptimizer::decimate(points, times);
        EXPECT_EQ(kept.back(), points.back());
        for (std::size_t i = 1; i + 1 < kept.size(); ++i)
            EXPECT_NEAR(distance(kept[i - 1], kept[i]), row.keptSpacing, 1e-9);
        times.pop_back();
        EXPECT_EQ(BrushStrokeOptimizer::decimate(points, times),
                  BrushStrokeOptimizer::decimate(points));
    }
    const Points close = {{0, 0}, {0.5, 0}};
    EXPECT_EQ(BrushStrokeOptimizer::decimate(close), close);
}

TEST(BrushStroke, SmoothingRunsThroughEveryPoint) {
    const Points points = {{0, 0}, {10, 20}, {40, 10}, {50, 50}};
    const Points smooth = BrushStrokeOptimizer::smooth(points);
    ASSERT_EQ(smooth.size(), 13u);
    for (std::size_t i = 0; i < points.size(); ++i)
        EXPECT_LT(distance(smooth[4 * i], points[i]), 1e-12);
    // Halfway the weights are -1/32, 17/32, 17/32, -1/32.
    EXPECT_NEAR(smooth[6].x(), (17 * (10 + 40) - 0 - 50) / 32.0, 1e-12);
    EXPECT_NEAR(smooth[6].y(), (17 * (20 + 10) - 0 - 50) / 32.0, 1e-12);
}

/// The textbook recursion.
void simplifyByTheBook(const Points& points, std::size_t first, std::size_t last, double tolerance,
                       Points& result) {
    const QPointF b = points[last] - points[first];
    const double length = std::hypot(b.x(), b.y());
    std::size_t farthest = first;
    double most = -1;
    for (std::size_t i = first + 1; i < last; ++i) {
        const QPointF p = points[i] - points[first];
        const double d = length > 0 ? std::abs(b.x() * p.y() - b.y() * p.x())
                                    : std::sqrt(p.x() * p.x() + p.y() * p.y());
        if (d > most) {
            most = d;
            farthest = i;
        }
    }
    if (length > 0) most /= length;
    if (farthest != first && most > tolerance) {
        simplifyByTheBook(points, first, farthest, tolerance, result);
        simplifyByTheBook(points, farthest, last, tolerance, result);
    } else {
        result.push_back(points[last]);
    }
}

template <typename PointAt>
Points stroke(int count, PointAt pointAt) {
    Points points;
    for (int i = 0; i < count; ++i)
        points.push_back(pointAt(i));
    return points;
}

/// Strokes that split evenly, ones that lose a point a split, and ones full of ties.
std::vector<std::pair<const char*, Points>> strokesOfAllSorts(int count) {
    std::mt19937 random(7);
    std::normal_distribution<double> step(0, 2);
    QPointF walk;
    const auto turned = [](double angle, double radius) {
        return QPointF(radius * std::cos(angle), radius * std::sin(angle));
    };
    const QPointF corners[] = {{0, 0}, {40, 7}, {20, 60}};
    std::vector<std::pair<const char*, Points>> strokes = {
        {"walk", stroke(count, [&](int) { return walk += QPointF(step(random), step(random)); })},
        {"wave", stroke(count, [](int i) { return QPointF(i * 0.2, 60 * std::sin(i * 0.01)); })},
        {"zigzag", stroke(count, [](int i) { return QPointF(i * 2, i % 2 * 100); })},
        {"shrinking zigzag",
         stroke(count, [&](int i) { return QPointF(i * 10, i % 2 ? 2 * count - i : 0); })},
        {"growing zigzag", stroke(count, [](int i) { return QPointF(i * 3, i % 2 ? i : -i); })},
        {"slanted zigzag",
         stroke(count, [](int i) { return QPointF(i * 3 - i % 2 * 50, i * 3 + i % 2 * 50); })},
        {"zigzag that is rounded",
         stroke(count,
                [](int i) { return QPointF(i * 2.1 - i % 2 * 17.3, i / 3.0 + i % 2 * 99); })},
        {"zigzag with jitter",
         stroke(count, [&](int i) { return QPointF(i * 2, i % 2 * 100 + step(random)); })},
        {"coil", stroke(count, [&](int i) { return QPointF(i * 0.5, 0) + turned(i * 0.3, 50); })},
        {"spiral", stroke(count, [&](int i) { return turned(i * 0.05, 1 + i * 0.1); })},
        {"circle", stroke(count, [&](int i) { return turned(i * 0.002, 500); })},
        {"line", stroke(count, [](int i) { return QPointF(i * 3, i * 2); })},
        {"line to and fro", stroke(count, [](int i) { return QPointF(i * i % 977, 0); })},
        {"one place", stroke(count, [](int) { return QPointF(5, 6); })},
        {"triangle again and again", stroke(count, [&](int i) { return corners[i % 3]; })},
        {"each point twice", stroke(count, [](int i) { return QPointF(i / 2, i / 2 % 3 * 9); })},
    };
    Points closed = strokes.front().second;
    closed.push_back(closed.front());
    strokes.emplace_back("closed", closed);
    return strokes;
}

TEST(BrushStroke, SimplifiesLikeTheTextbook) {
    for (const int count : {3, 40, 3000}) {
        auto strokes = strokesOfAllSorts(count);
        strokes.emplace_back(
            "far away", stroke(count, [](int i) { return QPointF(i * 1e140, i % 2 * 1e145); }));
        for (const auto& [name, points] : strokes) {
            for (const double tolerance : {0.0, 1.5}) {
                Points expected = {points.front()};
                simplifyByTheBook(points, 0, points.size() - 1, tolerance, expected);
                EXPECT_TRUE(identical(BrushStrokeOptimizer::simplify(points, tolerance), expected))
                    << name << " of " << count << " within " << tolerance;
            }
        }
    }
}

// Looked at point by point, those that lose a point a split take a hundred times as long.
TEST(BrushStroke, NoStrokeTakesMuchLongerThanAnyOther) {
    const auto leastTime = [](const Points& points) {
        double least = INFINITY;
        for (int round = 0; round < 3; ++round) {
            Stopwatch watch;
            EXPECT_FALSE(BrushStrokeOptimizer::optimize(points, {}, 1.5).empty());
            least = std::min(least, watch.lap());
        }
        return least;
    };
    const auto strokes = strokesOfAllSorts(10000);
    const double usual = leastTime(strokes.front().second);
    for (const auto& [name, points] : strokes)
        EXPECT_LT(leastTime(points), 30 * usual) << name;
}

}  // namespace
}  // namespace kestrio
