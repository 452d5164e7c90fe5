#pragma once

#include "render/style/OverlaySettings.h"

#include <QImage>

namespace kestrio {

/// Draws an overlay over the whole bitmap. `opacity` is a percentage and is clamped to 0...100.
void drawOverlay(QImage& bitmap, OverlayType type, double opacity);

/// The overlay alone on a transparent bitmap.
QImage renderOverlayImage(OverlayType type, QSize pixels, double opacity);

}  // namespace kestrio
