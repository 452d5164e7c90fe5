#pragma once

#include <QImage>

namespace kestrio {

/// Moves every colour away from or towards its own luma, in place: 1 changes nothing, 0 makes grey,
/// 2 doubles the distance. Results are clamped to the colour range of the pixel's alpha.
void adjustSaturation(QImage& bitmap, double factor);

}  // namespace kestrio
