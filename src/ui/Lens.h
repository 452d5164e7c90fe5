#pragma once

#include <QImage>
#include <QRectF>

class QPainter;

namespace kestrio {

/// A magnifier's round lens.
struct Lens {
    QRectF circle;         ///< where it is painted, in points
    double pixelSide = 8;  ///< of a pixel of the picture in the lens, in points
    bool hasCrosshair = true;

    /// The pixels around one of a picture, enlarged, with that one in the middle and framed. What
    /// lies beyond the picture is dark. Leaves the painter's pen and brush changed.
    void paint(QPainter& painter, const QImage& picture, QPoint pixel) const;
};

}  // namespace kestrio
