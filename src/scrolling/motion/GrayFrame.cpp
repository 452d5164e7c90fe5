#include "scrolling/motion/GrayFrame.h"

#include <algorithm>
#include <cmath>

namespace kestrio {

GrayFrame makeGrayFrame(const QImage& frame, int maximumWidth) {
    const int width = std::min(std::max(maximumWidth, 1), frame.width());
    const double height = std::round(double(width) / frame.width() * frame.height());
    GrayFrame gray;
    gray.pixels =
        grayCopy(frame, frame.rect(), QSize(width, std::max(static_cast<int>(height), 1)));
    if (gray.pixels.bytes.empty()) return gray;
    gray.sourceScaleX = double(frame.width()) / gray.width();
    gray.sourceScaleY = double(frame.height()) / gray.height();
    return gray;
}

}  // namespace kestrio
