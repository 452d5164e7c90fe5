#pragma once

#include <QImage>
#include <QRectF>

class QPainter;

namespace kestrio {

/// Paints the pixels around one pixel of the frozen picture in a round lens with the middle one
/// framed, and below it the middle one's colour. `place` is 130 by 150 points.
void paintMagnifier(QPainter& painter, const QRectF& place, const QImage& frozen, QPoint pixel);

}  // namespace kestrio
