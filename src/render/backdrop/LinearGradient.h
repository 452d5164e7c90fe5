#pragma once

#include "core/CodableColor.h"

#include <QImage>
#include <QPointF>
#include <vector>

namespace kestrio {

/// A linear gradient in pixels of the bitmap that it fills; its stops are spaced evenly and its end
/// colours continue past both ends.
struct LinearGradient {
    std::vector<CodableColor> colors;
    QPointF start;
    QPointF end;
};

/// Overwrites the whole bitmap with the gradient. Colours run from stop to stop premultiplied, so
/// that a transparent end does not darken the way to it.
void fillLinearGradient(QImage& bitmap, const LinearGradient& gradient);

}  // namespace kestrio
