#pragma once

#include <QImage>
#include <QRect>
#include <QRectF>
#include <cstdint>
#include <vector>

#include "imaging/filters/CubicWeights.h"

namespace kestrio {

/// A source scaled into a target rectangle, computed run by run on demand, so that no scaled or
/// half-scaled bitmap is ever held.
class ScaledRows {
  public:
    /// Working memory of one thread.
    struct Scratch {
        std::vector<float> sourceRun;
        std::vector<std::int32_t> targetRun;
    };

    /// `area` is the part of the target, in target pixels, that will be asked for. `source` is in
    /// one of Image's formats, not null, and outlives this object; `target` is finite and not
    /// empty.
    ScaledRows(const QImage& source, const QRectF& target, const QRect& area);

    /// Writes `count` pixels of row `y` from column `x` on, both inside the area.
    void read(int x, int y, int count, Scratch& scratch, std::uint32_t* pixels) const;

  private:
    const QImage& source_;
    QPoint areaOrigin_;
    CubicWeights columns_;
    CubicWeights rows_;
    bool copies_;
    QPoint copyOrigin_;
};

}  // namespace kestrio
