#include "imaging/Image.h"

#include <cmath>

namespace kestrio {

QImage inCanonicalFormat(QImage bitmap) {
    switch (bitmap.format()) {
        case QImage::Format_Invalid:
        case QImage::Format_RGB32:
        case QImage::Format_ARGB32_Premultiplied:
            return bitmap;
        default:
            return std::move(bitmap).convertToFormat(bitmap.hasAlphaChannel()
                                                         ? QImage::Format_ARGB32_Premultiplied
                                                         : QImage::Format_RGB32);
    }
}

Image::Image(QImage bitmap, double pixelsPerPoint)
    : bitmap_(inCanonicalFormat(std::move(bitmap))),
      pointSize_(bitmap_.width() / pixelsPerPoint, bitmap_.height() / pixelsPerPoint) {}

Image::Image(QImage bitmap, QSizeF pointSize)
    : bitmap_(inCanonicalFormat(std::move(bitmap))), pointSize_(pointSize) {}

double Image::pixelDensity() const {
    if (isNull()) return 1.0;
    const double density = std::max(bitmap_.width() / std::max(pointSize_.width(), 1.0),
                                    bitmap_.height() / std::max(pointSize_.height(), 1.0));
    if (!std::isfinite(density) || density <= 0) return 1.0;
    return std::max(density, 1.0);
}

}  // namespace kestrio
