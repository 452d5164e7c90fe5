#include "annotation/editing/Alignment.h"

#include <algorithm>
#include <numeric>

namespace kestrio {

namespace {

enum class Goal { least, mean, greatest };

struct AlignmentRow {
    double (*line)(const QRectF&);
    void (*move)(QRectF&, double line);
    Goal goal;
};

/// By AlignmentType.
constexpr AlignmentRow rows[] = {
    {[](const QRectF& rect) { return rect.left(); },
     [](QRectF& rect, double x) { rect.moveLeft(x); }, Goal::least},
    {[](const QRectF& rect) { return rect.center().x(); },
     [](QRectF& rect, double x) { rect.moveLeft(x - rect.width() / 2); }, Goal::mean},
    {[](const QRectF& rect) { return rect.right(); },
     [](QRectF& rect, double x) { rect.moveRight(x); }, Goal::greatest},
    {[](const QRectF& rect) { return rect.top(); }, [](QRectF& rect, double y) { rect.moveTop(y); },
     Goal::least},
    {[](const QRectF& rect) { return rect.center().y(); },
     [](QRectF& rect, double y) { rect.moveTop(y - rect.height() / 2); }, Goal::mean},
    {[](const QRectF& rect) { return rect.bottom(); },
     [](QRectF& rect, double y) { rect.moveBottom(y); }, Goal::greatest},
};

double target(const std::vector<double>& lines, Goal goal) {
    if (goal == Goal::least) return *std::ranges::min_element(lines);
    if (goal == Goal::greatest) return *std::ranges::max_element(lines);
    return std::accumulate(lines.begin(), lines.end(), 0.0) / static_cast<double>(lines.size());
}

}  // namespace

std::vector<QRectF> aligned(std::vector<QRectF> rects, AlignmentType type) {
    if (rects.empty()) return rects;
    const AlignmentRow& row = rows[static_cast<std::size_t>(type)];
    std::vector<double> lines;
    for (const QRectF& rect : rects)
        lines.push_back(row.line(rect));
    const double goal = target(lines, row.goal);
    for (std::size_t i = 0; i < rects.size(); ++i) {
        if (lines[i] != goal) row.move(rects[i], goal);
    }
    return rects;
}

std::vector<QRectF> distributed(std::vector<QRectF> rects, DistributionAxis axis) {
    if (rects.size() < 3) return rects;
    const bool isHorizontal = axis == DistributionAxis::horizontal;
    const auto middle = [&](std::size_t i) {
        return isHorizontal ? rects[i].center().x() : rects[i].center().y();
    };
    std::vector<std::size_t> order(rects.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {}, middle);
    const double first = middle(order.front());
    const double last = middle(order.back());
    const double step = (last - first) / static_cast<double>(order.size() - 1);
    for (std::size_t i = 1; i + 1 < order.size(); ++i) {
        const double shift = first + static_cast<double>(i) * step - middle(order[i]);
        rects[order[i]].translate(isHorizontal ? QPointF(shift, 0) : QPointF(0, shift));
    }
    return rects;
}

}  // namespace kestrio
