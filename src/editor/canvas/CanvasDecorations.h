#pragma once

#include "editor/canvas/CanvasInteraction.h"

#include <QPainter>

namespace kestrio {

/// A quiet checkerboard behind transparent parts of the canvas.
void paintTransparencyGrid(QPainter& painter, const QRectF& rect);

/// What lies over the annotations while they are edited: guides, selection, handles, rubber band,
/// the size of what is resized, the eraser's reach, and a sample of what the tool would make. In
/// points of the view.
void paintDecorations(QPainter& painter, const EditorViewModel& editor,
                      const CanvasInteraction& interaction);

/// What paintDecorations() stays within, in points of the view; empty where there is nothing to
/// paint. Guides go through the whole view.
QRectF decorationBounds(const EditorViewModel& editor, const CanvasInteraction& interaction);

}  // namespace kestrio
