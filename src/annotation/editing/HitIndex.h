#pragma once

#include "annotation/model/AnyAnnotation.h"

namespace kestrio {

/// Boxes around all that isHit() finds of a list of annotations, gathered once: a pointer that
/// moves over thousands of records then costs next to nothing. It does not follow changes of the
/// list.
class HitIndex {
  public:
    explicit HitIndex(const std::vector<AnyAnnotation>& annotations);

    /// The last annotation before the `end`-th that a point may hit, for isHit() to decide; nothing
    /// where no earlier one can be hit.
    std::optional<std::size_t> lastCandidate(const QPointF& point, std::size_t end) const;

  private:
    void append(const QRectF& box);

    std::vector<double> left_;
    std::vector<double> top_;
    std::vector<double> right_;
    std::vector<double> bottom_;
};

}  // namespace kestrio
