#include "text/recognition/OCRResult.h"

namespace kestrio {

QRectF normalizedFromPixels(QRectF pixels, QSize size) {
    return {pixels.x() / size.width(), 1 - pixels.bottom() / size.height(),
            pixels.width() / size.width(), pixels.height() / size.height()};
}

QRectF pixelsFromNormalized(QRectF fractions, QSize size) {
    return {fractions.x() * size.width(), (1 - fractions.bottom()) * size.height(),
            fractions.width() * size.width(), fractions.height() * size.height()};
}

}  // namespace kestrio
