#pragma once

#include "render/style/MockupSettings.h"

#include <QImage>
#include <QPainterPath>

namespace kestrio {

/// A shadow in points: how soft, how dark, and where it falls.
struct ShadowMetrics {
    double blur;  ///< twice the standard deviation of its Gaussian
    double alpha;
    QPointF offset;  ///< y upward: 8 moves the shadow towards the top of the picture
};

/// The single precision values of `alpha` are the figures that pictures have always been made with.
ShadowMetrics shadowMetrics(const MockupSettings& mockup);

/// Draws the black shadow that a silhouette casts, in pixels of the bitmap; `scale` is pixels a
/// point. Nothing is drawn outside `clip`. What will cover the shadow later need not be drawn:
/// pixels of `covered` are left alone.
void paintShadow(QImage& bitmap, const QPainterPath& silhouette, const ShadowMetrics& shadow,
                 double scale, QRect clip, QRect covered);

}  // namespace kestrio
