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

/// The shadow that a mockup asks for. Its alpha is a single precision figure on purpose.
ShadowMetrics shadowMetrics(const MockupSettings& mockup);

/// Draws the black shadow that a silhouette casts, in pixels of the bitmap; `scale` is pixels a
/// point. Nothing is drawn outside `clip`. What will cover the shadow later need not be drawn:
/// pixels of `covered` are left alone. Throws ExportError::renderingFailed where a shadow falls so
/// far that drawing it would take gigabytes.
void paintShadow(QImage& bitmap, const QPainterPath& silhouette, const ShadowMetrics& shadow,
                 double scale, QRect clip, QRect covered);

}  // namespace kestrio
