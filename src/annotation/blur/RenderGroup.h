#pragma once

#include "annotation/model/BlurAnnotation.h"

#include <QRectF>
#include <compare>
#include <vector>

namespace kestrio {

/// What blur annotations must share to be rendered in one pass. The order is that of painting.
struct RenderGroupKey {
    BlurType type = BlurType::gaussian;
    /// The amount in tenths of a point; for solid cover the intensity in hundredths.
    int amountBucket = 0;

    auto operator<=>(const RenderGroupKey&) const = default;
};

/// How strong an effect is, by the intensity alone: a Gaussian's standard deviation in points of
/// the canvas (5 to 30), the side of a mosaic's cell in the same (4 to 32), or the opacity of a
/// solid cover (0.7 to 1). Intensities below 0 and undefined ones count as 0, since a document must
/// not make a region readable by them; those above 1 go on growing up to where no picture shows a
/// difference.
double blurAmount(BlurType type, double intensity);

RenderGroupKey renderGroupKey(const BlurAnnotation& annotation);

/// Annotations of equal key; the first one's amount stands for all.
struct RenderGroup {
    RenderGroupKey key;
    double amount = 0;
    /// In points of the canvas, as the annotations have them.
    std::vector<QRectF> bounds;
};

/// The passes that the annotations ask for, in the order of painting; one for each key.
std::vector<RenderGroup> renderGroups(const std::vector<BlurAnnotation>& annotations);

}  // namespace kestrio
