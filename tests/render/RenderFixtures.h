#pragma once

#include "render/ImageComposer.h"

namespace kestrio {

/// A small made-up screenshot: a sidebar, a header and stripes on a light ground, opaque.
QImage testScreenshot(QSize pixels = {240, 150});

/// A composer whose watermarks work and whose presets live in memory.
ImageComposer& testComposer();

/// A request that shows `bitmap` at one pixel a point on a canvas of its own size.
CompositeRequest requestOf(const QImage& bitmap, const EditorStyleSettings& style = {});

/// The style with nothing on it: transparent, no padding, square, no shadow.
EditorStyleSettings bareStyle();

/// The mean absolute difference of all channels, 0 to 255; the pictures are of one size.
double meanDifference(const QImage& first, const QImage& second);

}  // namespace kestrio
