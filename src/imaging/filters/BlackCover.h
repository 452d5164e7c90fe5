#pragma once

#include <QImage>

#include "imaging/filters/PixelRegion.h"

namespace kestrio {

/// Draws black of this opacity (0 to 1) over the pixels of `region`, each once; no other pixel
/// changes. At 1 they become opaque black, whatever they were.
void coverWithBlack(QImage& bitmap, double opacity, const PixelRegion& region);

}  // namespace kestrio
