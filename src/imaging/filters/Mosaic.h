#pragma once

#include <QImage>
#include <QPointF>

#include "imaging/filters/PixelRegion.h"

namespace kestrio {

/// Squares that tile the plane, one of them centred at `center`; pixels from the top left of the
/// bitmap, fractions allowed. A pixel belongs to the cell that holds its centre, and on an edge
/// between two cells to the one that begins there.
struct MosaicGrid {
    double cell;
    QPointF center;
};

/// Shows the mean of each cell in all of its pixels that lie in `region`; no other pixel changes,
/// and only pixels of cells that the region touches are read. The mean is that of the premultiplied
/// channels, rounded to the nearest level, over the pixels that the cell has in the bitmap. Cells
/// of 1 pixel or less, or of no size, change nothing.
void mosaic(QImage& bitmap, const MosaicGrid& grid, const PixelRegion& region);

}  // namespace kestrio
