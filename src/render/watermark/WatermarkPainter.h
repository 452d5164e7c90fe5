#pragma once

#include "imaging/Image.h"
#include "render/style/WatermarkSettings.h"

namespace kestrio {

/// The picture with the mark burned in. The picture itself, unchanged, where there is nothing to
/// draw: no text, a mark of no size, or mark data that is no picture.
Image paintWatermark(Image image, const WatermarkSettings& settings);

/// Where a mark of `mark` size stands on a picture of `image` size, both in points.
QRectF watermarkRect(QSizeF image, QSizeF mark, const WatermarkSettings& settings);

/// The size of a text mark on a picture `imageWidth` points wide.
QSizeF textMarkSize(double imageWidth, const WatermarkSettings& settings);

}  // namespace kestrio
