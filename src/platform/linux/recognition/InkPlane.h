#pragma once

#include <QImage>
#include <QRect>
#include <cstdint>
#include <vector>

namespace kestrio {

/// One byte a pixel, rows from the top without gaps.
struct GrayPlane {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> values;

    std::uint8_t* row(int y) { return values.data() + static_cast<size_t>(y) * width; }
    const std::uint8_t* row(int y) const { return values.data() + static_cast<size_t>(y) * width; }
};

/// A part of a picture as dark ink on a light ground, whatever its colours, stretched to all of 0
/// to 255: how far each pixel is from the ground, where the area's edge has one colour, otherwise
/// its brightness, inverted where most of the edge is dark. Transparent pixels count as white.
/// `area` lies within the picture.
GrayPlane inkOf(const QImage& picture, QRect area);

/// A part of a plane in another size. `area` is in pixels of the plane and may leave it, where the
/// edge goes on. Pixels are weighted by a triangle as wide as a pixel of the result, but never
/// narrower than one of the plane: linear interpolation enlarging, an average reducing.
GrayPlane resampled(const GrayPlane& plane, QRectF area, QSize size);

}  // namespace kestrio
