#pragma once

#include "render/frames/FrameShape.h"

#include <QPainter>

namespace kestrio {

/// Draws the part of a frame that lies under its content: back sheets, window and title bar with
/// all that is on it. The same drawing serves every scale and every device.
void paintFrameBehindContent(QPainter& painter, const FrameShape& shape);

/// Draws the part that lies over the content: the window's outline.
void paintFrameOverContent(QPainter& painter, const FrameShape& shape);

}  // namespace kestrio
