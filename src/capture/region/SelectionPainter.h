#pragma once

#include "capture/region/RegionSelection.h"

#include <QRegion>

class QPainter;

namespace kestrio {

/// Paints the border of what a region capture would take, with handles where it can be adjusted.
void paintSelection(QPainter& painter, const RegionSelection& selection);

/// All that paintSelection() may touch around such a rectangle.
QRegion selectionBorder(const QRectF& rect);

}  // namespace kestrio
