#pragma once

#include <QRectF>
#include <QUuid>
#include <vector>

namespace kestrio {

/// A horizontal guide is a line of constant y.
enum class GuideOrientation { horizontal, vertical };

/// Which line of the source rectangle a guide stands on; leading is left or top.
enum class GuideType { leading, center, trailing };

/// A line with which a moved annotation can align.
struct AlignmentGuide {
    double position = 0;  ///< x of a vertical guide, y of a horizontal one; image points
    GuideOrientation orientation = GuideOrientation::horizontal;
    QUuid sourceAnnotationId;
    GuideType guideType = GuideType::leading;

    bool operator==(const AlignmentGuide&) const = default;
};

/// A rectangle that guides can come from.
struct GuideSource {
    QUuid id;
    QRectF bounds;
};

/// Finds the guides near a moved rectangle and aligns it with them.
struct AlignmentGuideService {
    /// How near a line must be, in image points; this distance itself is near.
    static constexpr double threshold = 8.0;

    /// Every pair of lines that are near each other gives a guide, in the order of the sources;
    /// the source with the moved annotation's own id gives none.
    static std::vector<AlignmentGuide> guides(const QRectF& bounds, const QUuid& id,
                                              const std::vector<GuideSource>& among);
    /// The first of those that share an orientation and, to a tenth of a point, a position.
    static std::vector<AlignmentGuide> unique(const std::vector<AlignmentGuide>& guides);
    /// The rectangle moved onto the guides that one of its lines is near; of several for one axis
    /// the last counts.
    static QRectF snapped(const QRectF& rect, const std::vector<AlignmentGuide>& guides);
};

}  // namespace kestrio
