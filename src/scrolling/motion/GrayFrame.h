#pragma once

#include "imaging/filters/GrayCopy.h"

namespace kestrio {

/// A small gray copy of a frame.
struct GrayFrame {
    GrayPixels pixels;
    double sourceScaleX = 1;  ///< pixels of the frame per pixel of the copy
    double sourceScaleY = 1;

    int width() const { return pixels.width; }
    int height() const { return pixels.height; }
    const std::uint8_t* row(int y) const { return pixels.row(y); }
    std::uint8_t at(int x, int y) const { return pixels.row(y)[x]; }
};

/// A copy of at most `maximumWidth` columns, of a frame that is not null.
GrayFrame makeGrayFrame(const QImage& frame, int maximumWidth);

}  // namespace kestrio
