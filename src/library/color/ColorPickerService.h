#pragma once

#include "core/CodableColor.h"
#include "imaging/Image.h"

#include <optional>

namespace kestrio {

/// Reads pixels out of pictures. Points are in points of the picture from its top left corner. Has
/// no state; any thread.
class ColorPickerService {
  public:
    /// The colour of the pixel under a point; nothing outside the picture.
    std::optional<CodableColor> colorAt(const Image& image, QPointF point) const;

    /// The pixels around the one under a point, 2 * `radius` + 1 of them each way, for a magnifier;
    /// transparent beyond the picture's edges. Null where the radius is negative or the point is
    /// no number.
    QImage pixelsAround(const Image& image, QPointF point, int radius) const;
};

}  // namespace kestrio
