#pragma once

#include "annotation/model/BlurAnnotation.h"

#include <QPainter>

namespace kestrio {

/// Paints a hint of what a blur will look like over `rect`, in points of the view: a frosted pane,
/// a grid of cells or a dark cover. Costs next to nothing; the blur itself follows from the
/// background. The painter's state is restored.
void paintBlurPlaceholder(QPainter& painter, const BlurAnnotation& blur, const QRectF& rect);

}  // namespace kestrio
