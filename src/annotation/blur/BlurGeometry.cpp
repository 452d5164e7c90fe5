#include "annotation/blur/BlurGeometry.h"

#include "core/Clamp.h"

#include <cmath>

namespace kestrio {

namespace {

// What scaling back and forth adds to whole numbers; so little of a pixel covers nothing of it.
constexpr double roundingNoise = 1e-6;

// Beyond all pictures; keeps kernels and cells within the range of integers.
constexpr double greatestScale = 1000;

bool isSize(double width, double height) {
    return std::isfinite(width) && std::isfinite(height) && width > 0 && height > 0;
}

bool isFinite(const QRectF& rect) {
    return std::isfinite(rect.x()) && std::isfinite(rect.y()) && std::isfinite(rect.width()) &&
           std::isfinite(rect.height());
}

int firstPixel(double edge, int length) {
    return static_cast<int>(clampedOr(std::floor(edge + roundingNoise), 0, length));
}

int endPixel(double edge, int length) {
    return static_cast<int>(clampedOr(std::ceil(edge - roundingNoise), 0, length));
}

}  // namespace

std::optional<BlurGeometry> BlurGeometry::of(QSize bitmap, QSizeF pointSize, QSizeF canvasSize,
                                             QRectF contentRect) {
    if (bitmap.isEmpty() || !isSize(canvasSize.width(), canvasSize.height()) ||
        !isSize(pointSize.width(), pointSize.height())) {
        return std::nullopt;
    }
    BlurGeometry geometry;
    geometry.extent_ = QRect(QPoint(), bitmap);
    geometry.contentRect_ = contentRect;
    geometry.contentX_ = contentRect.width() / canvasSize.width();
    geometry.contentY_ = contentRect.height() / canvasSize.height();
    geometry.pixelX_ = bitmap.width() / pointSize.width();
    geometry.pixelY_ = bitmap.height() / pointSize.height();
    const double pixelScale = (geometry.pixelX_ + geometry.pixelY_) / 2;
    const double displayFactor = (geometry.contentX_ + geometry.contentY_) / 2;
    geometry.lengthScale_ = clampedOr(pixelScale * displayFactor, 0, greatestScale);
    return geometry;
}

PixelRegion BlurGeometry::pixelsUnder(const std::vector<QRectF>& canvasRects) const {
    std::vector<QRect> pixels;
    for (const QRectF& rect : canvasRects)
        pixels.push_back(pixelsUnder(rect));
    return PixelRegion(pixels, extent_);
}

QRect BlurGeometry::pixelsUnder(const QRectF& rect) const {
    if (!isFinite(rect) || !(rect.width() > 0) || !(rect.height() > 0)) return {};
    const QRectF mapped =
        QRectF((contentRect_.x() + rect.x() * contentX_) * pixelX_,
               (contentRect_.y() + rect.y() * contentY_) * pixelY_,
               rect.width() * contentX_ * pixelX_, rect.height() * contentY_ * pixelY_)
            .normalized();
    if (!isFinite(mapped)) return {};
    const int left = firstPixel(mapped.left(), extent_.width());
    const int top = firstPixel(mapped.top(), extent_.height());
    return {left, top, endPixel(mapped.right(), extent_.width()) - left,
            endPixel(mapped.bottom(), extent_.height()) - top};
}

}  // namespace kestrio
