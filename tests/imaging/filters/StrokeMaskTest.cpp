#include "imaging/filters/StrokeMask.h"

#include <gtest/gtest.h>
#include <QLineF>
#include <cmath>
#include <random>

namespace kestrio {
namespace {

double distanceTo(const QPointF& from, const QPointF& to, const QPointF& point) {
    const QPointF way = to - from;
    const double square = QPointF::dotProduct(way, way);
    const double t =
        square > 0 ? std::clamp(QPointF::dotProduct(point - from, way) / square, 0.0, 1.0) : 0;
    return QLineF(from + t * way, point).length();
}

// Every pixel against every segment.
Mask plainStrokeMask(const std::vector<QPointF>& points, double width, QRect bounds) {
    Mask mask(bounds);
    for (int y = bounds.top(); y <= bounds.bottom(); ++y) {
        for (int x = bounds.left(); x <= bounds.right(); ++x) {
            double nearest = 1e9;
            for (std::size_t i = 0; i < points.size(); ++i) {
                nearest = std::min(
                    nearest, distanceTo(points[i > 0 ? i - 1 : 0], points[i], {x + 0.5, y + 0.5}));
            }
            const double inside = std::clamp(width / 2 + 0.5 - nearest, 0.0, std::min(1.0, width));
            mask.row(y)[x - bounds.left()] = static_cast<std::uint8_t>(inside * 255 + 0.5);
        }
    }
    return mask;
}

TEST(StrokeMask, CoversAsFarAsPixelsLieInside) {
    std::mt19937 random(3);
    const QRect bounds(-5, 7, 90, 70);
    for (const double width : {0.4, 1.0, 2.5, 8.0, 31.0}) {
        for (const int count : {1, 2, 3, 12}) {
            std::vector<QPointF> points;
            for (int i = 0; i < count; ++i) {
                // Some lie outside; whole coordinates make upright, level and repeated ones likely.
                points.emplace_back(int(random() % 110) - 15, int(random() % 8) * 11);
            }
            const Mask fast = strokeMask(points, width, bounds);
            const Mask plain = plainStrokeMask(points, width, bounds);
            for (int y = bounds.top(); y <= bounds.bottom(); ++y)
                for (int x = bounds.left(); x <= bounds.right(); ++x)
                    ASSERT_NEAR(fast.at({x, y}), plain.at({x, y}), 1)
                        << width << " " << count << " at " << x << "," << y;
        }
    }
}

}  // namespace
}  // namespace kestrio
