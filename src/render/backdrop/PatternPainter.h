#pragma once

#include "render/style/PatternSettings.h"

#include <QImage>

namespace kestrio {

/// Draws a pattern over the whole bitmap. `scale` is pixels a point. Settings out of range are
/// clamped here.
void drawPattern(QImage& bitmap, const PatternSettings& pattern, double scale);

}  // namespace kestrio
