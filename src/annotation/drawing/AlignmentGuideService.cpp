#include "annotation/drawing/AlignmentGuideService.h"

#include <array>
#include <cmath>
#include <optional>
#include <set>

namespace kestrio {

namespace {

/// The lines of a rectangle across one axis, in the order of GuideType.
using Lines = std::array<double, 3>;

Lines linesAlongX(const QRectF& rect) {
    return {rect.left(), rect.center().x(), rect.right()};
}

Lines linesAlongY(const QRectF& rect) {
    return {rect.top(), rect.center().y(), rect.bottom()};
}

/// The new least coordinate of a span that snaps to a position, if any of its lines is near.
std::optional<double> snappedStart(const Lines& lines, double position) {
    constexpr double threshold = AlignmentGuideService::threshold;
    const double toMin = std::abs(lines[0] - position);
    const double toMid = std::abs(lines[1] - position);
    const double toMax = std::abs(lines[2] - position);
    const double extent = lines[2] - lines[0];
    if (toMin <= threshold && toMin <= toMid && toMin <= toMax) return position;
    if (toMid <= threshold && toMid <= toMin && toMid <= toMax) return position - extent / 2;
    if (toMax <= threshold) return position - extent;
    return std::nullopt;
}

}  // namespace

std::vector<AlignmentGuide> AlignmentGuideService::guides(const QRectF& bounds, const QUuid& id,
                                                          const std::vector<GuideSource>& among) {
    std::vector<AlignmentGuide> found;
    for (const GuideSource& source : among) {
        if (source.id == id) continue;
        const auto compare = [&](GuideOrientation orientation, const Lines& theirs,
                                 const Lines& ours) {
            for (std::size_t i = 0; i < theirs.size(); ++i) {
                for (const double line : ours) {
                    if (std::abs(theirs[i] - line) > threshold) continue;
                    found.push_back({theirs[i], orientation, source.id, static_cast<GuideType>(i)});
                }
            }
        };
        compare(GuideOrientation::vertical, linesAlongX(source.bounds), linesAlongX(bounds));
        compare(GuideOrientation::horizontal, linesAlongY(source.bounds), linesAlongY(bounds));
    }
    return found;
}

std::vector<AlignmentGuide> AlignmentGuideService::unique(
    const std::vector<AlignmentGuide>& guides) {
    std::set<std::pair<GuideOrientation, double>> seen;
    std::vector<AlignmentGuide> kept;
    for (const AlignmentGuide& guide : guides) {
        if (seen.emplace(guide.orientation, std::trunc(guide.position * 10)).second) {
            kept.push_back(guide);
        }
    }
    return kept;
}

QRectF AlignmentGuideService::snapped(const QRectF& rect,
                                      const std::vector<AlignmentGuide>& guides) {
    QRectF result = rect;
    for (const AlignmentGuide& guide : guides) {
        if (guide.orientation == GuideOrientation::horizontal) {
            if (const auto y = snappedStart(linesAlongY(rect), guide.position)) result.moveTop(*y);
        } else {
            if (const auto x = snappedStart(linesAlongX(rect), guide.position)) result.moveLeft(*x);
        }
    }
    return result;
}

}  // namespace kestrio
