#pragma once

#include <QImage>
#include <QRect>
#include <cstdint>
#include <vector>

namespace kestrio {

/// The brightness of a picture, one byte a pixel, rows from the top and without padding.
struct GrayPixels {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> bytes;

    const std::uint8_t* row(int y) const { return bytes.data() + std::size_t(y) * width; }
    bool operator==(const GrayPixels&) const = default;
};

/// The brightness (Rec. 601 weights) of the part `source` of a picture in one of Image's formats,
/// scaled to `size` pixels by the mean of what each of them covers. A part that is empty or not
/// within the picture, or an empty size, makes an empty copy.
GrayPixels grayCopy(const QImage& picture, QRect source, QSize size);

}  // namespace kestrio
