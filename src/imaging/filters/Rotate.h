#pragma once

#include <QImage>
#include <QSize>

namespace kestrio {

/// The bitmap turned clockwise by quarters, exactly; any number of turns, negative ones
/// counter-clockwise. The format stays.
QImage rotatedQuarterTurns(const QImage& bitmap, int clockwiseTurns);

/// The bitmap turned clockwise on screen around its centre, which lies in the centre of a
/// transparent canvas of `canvas` pixels; parts outside the canvas are cut off. Catmull-Rom
/// interpolation, antialiased outer edges; ARGB32_Premultiplied. Null where the canvas is empty.
QImage rotated(const QImage& bitmap, double clockwiseDegrees, QSize canvas);

}  // namespace kestrio
