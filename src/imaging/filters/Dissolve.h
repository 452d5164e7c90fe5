#pragma once

#include <QImage>

namespace kestrio {

/// Moves each pixel towards that of another bitmap of the same size, in place: 0 changes nothing, 1
/// makes it the other's. Bitmaps of different sizes are left alone.
void dissolve(QImage& bitmap, const QImage& target, double amount);

}  // namespace kestrio
