#pragma once

#include <QImage>
#include <QRectF>

#include "imaging/filters/Mask.h"

namespace kestrio {

/// Where and how drawScaled() draws.
struct ScaledDraw {
    /// What the whole source fills, in pixels of the destination; fractions and parts outside the
    /// destination are fine.
    QRectF target;
    /// Coverage in pixels of the destination, 0 outside its bounds. Without one, the target's
    /// fractional edges are antialiased.
    const Mask* clip = nullptr;
    /// 0 to 1.
    double opacity = 1.0;
};

/// Draws the source over the destination (source-over), scaled into the target with Catmull-Rom
/// interpolation (R. Keys, "Cubic Convolution Interpolation for Digital Image Processing", 1981),
/// its kernel widened to cover all pixels when it shrinks. Beyond its edges the source continues
/// with its outermost pixels. Targets that are empty or not finite draw nothing. At whole pixels
/// and one to one the source's pixels come through unchanged.
void drawScaled(QImage& destination, const QImage& source, const ScaledDraw& draw);

/// The source scaled to `size` pixels with the same kernels and in its own format; null where the
/// source or the size is empty.
QImage scaledTo(const QImage& source, QSize size);

}  // namespace kestrio
