#include "imaging/filters/StrokeMask.h"

#include <cmath>
#include <cstring>

namespace kestrio {

namespace {

/// Along a row of pixels, in pixels; empty where `last` is below `first`.
struct Interval {
    double first = 1;
    double last = 0;

    bool isEmpty() const { return !(first <= last); }
};

// Of intervals that together have no gap.
Interval united(const Interval& a, const Interval& b) {
    if (a.isEmpty()) return b;
    if (b.isEmpty()) return a;
    return {std::min(a.first, b.first), std::max(a.last, b.last)};
}

Interval intersected(const Interval& a, const Interval& b) {
    return {std::max(a.first, b.first), std::min(a.last, b.last)};
}

/// Where low <= offset + slope * x <= high.
Interval between(double low, double high, double offset, double slope) {
    constexpr double everywhere = 1e12;
    if (slope == 0) {
        return low <= offset && offset <= high ? Interval{-everywhere, everywhere} : Interval{};
    }
    const double a = (low - offset) / slope, b = (high - offset) / slope;
    return {std::min(a, b), std::max(a, b)};
}

/// A segment between the middles of two round caps.
class Capsule {
  public:
    Capsule(const QPointF& from, const QPointF& to) : from_(from), to_(to) {
        const QPointF way = to - from;
        length_ = std::hypot(way.x(), way.y());
        if (length_ > 0) along_ = way / length_;
    }

    double top() const { return std::min(from_.y(), to_.y()); }
    double bottom() const { return std::max(from_.y(), to_.y()); }

    /// Where a row at height `y` lies within `radius` of the segment: one interval, since the
    /// outline is convex.
    Interval within(double radius, double y) const {
        if (!(radius > 0)) return {};
        Interval all = united(disc(from_, radius, y), disc(to_, radius, y));
        if (!(length_ > 0)) return all;
        // Measured from the start: along the segment and across it, both linear in x.
        const double dy = y - from_.y();
        const double alongOffset = dy * along_.y() - from_.x() * along_.x();
        const double acrossOffset = dy * along_.x() + from_.x() * along_.y();
        return united(all, intersected(between(0, length_, alongOffset, along_.x()),
                                       between(-radius, radius, acrossOffset, -along_.y())));
    }

    double distance(double x, double y) const {
        const double dx = x - from_.x(), dy = y - from_.y();
        const double t = std::clamp(dx * along_.x() + dy * along_.y(), 0.0, length_);
        const double ex = dx - t * along_.x(), ey = dy - t * along_.y();
        return std::sqrt(ex * ex + ey * ey);
    }

  private:
    static Interval disc(const QPointF& center, double radius, double y) {
        const double dy = y - center.y();
        const double square = radius * radius - dy * dy;
        if (square < 0) return {};
        const double half = std::sqrt(square);
        return {center.x() - half, center.x() + half};
    }

    QPointF from_, to_;
    QPointF along_;
    double length_ = 0;
};

class StrokeRasteriser {
  public:
    StrokeRasteriser(Mask& mask, double width) : mask_(mask), radius_(width / 2) {}

    void add(const Capsule& capsule) {
        const QRect& bounds = mask_.bounds();
        const double reach = radius_ + 0.5;
        const auto row = [&](double y) {
            return static_cast<int>(std::clamp<double>(y, bounds.top(), bounds.bottom() + 1));
        };
        const int last = row(std::ceil(capsule.bottom() + reach));
        for (int y = row(std::floor(capsule.top() - reach)); y < last; ++y)
            addRow(capsule, y);
    }

  private:
    // The first pixel whose middle is not before x, within the mask.
    int pixelFrom(double x) const {
        const QRect& bounds = mask_.bounds();
        return static_cast<int>(
            std::clamp<double>(std::ceil(x - 0.5), bounds.left(), bounds.right() + 1));
    }

    void addRow(const Capsule& capsule, int y) {
        const double middle = y + 0.5;
        const Interval touched = capsule.within(radius_ + 0.5, middle);
        if (touched.isEmpty()) return;
        const int first = pixelFrom(touched.first), last = pixelFrom(touched.last);
        const Interval inside = capsule.within(radius_ - 0.5, middle);
        int fullFirst = last, fullLast = last;
        if (!inside.isEmpty()) {
            fullFirst = std::clamp(pixelFrom(inside.first), first, last);
            fullLast = std::clamp(pixelFrom(inside.last), fullFirst, last);
        }
        addEdge(capsule, y, first, fullFirst);
        std::uint8_t* const row = mask_.row(y) - mask_.bounds().left();
        std::memset(row + fullFirst, 255, static_cast<std::size_t>(fullLast - fullFirst));
        addEdge(capsule, y, fullLast, last);
    }

    void addEdge(const Capsule& capsule, int y, int first, int last) {
        std::uint8_t* const row = mask_.row(y) - mask_.bounds().left();
        for (int x = first; x < last; ++x) {
            // Most of a segment's ends lie inside its neighbours.
            if (row[x] == 255) continue;
            const double inside = radius_ + 0.5 - capsule.distance(x + 0.5, y + 0.5);
            // Pens thinner than a pixel are fainter instead.
            const double coverage = std::clamp(inside, 0.0, std::min(1.0, 2 * radius_));
            row[x] = std::max(row[x], static_cast<std::uint8_t>(coverage * 255 + 0.5));
        }
    }

    Mask& mask_;
    double radius_;
};

}  // namespace

Mask strokeMask(std::span<const QPointF> points, double width, QRect bounds) {
    Mask mask(bounds);
    if (mask.isEmpty() || points.empty() || !(width > 0)) return mask;
    StrokeRasteriser rasteriser(mask, width);
    if (points.size() == 1) rasteriser.add({points[0], points[0]});
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
        rasteriser.add({points[i], points[i + 1]});
    return mask;
}

}  // namespace kestrio
