#include "editor/crop/CropGeometry.h"

#include "annotation/model/Geometry.h"

#include <algorithm>

namespace kestrio {

namespace {

/// Which sides of the frame a handle moves: -1 the left or top one, 1 the other, 0 none.
struct Sides {
    int x, y;
};

constexpr std::array<Sides, cropHandles.size()> sidesOfHandles = {{
    {-1, -1},
    {0, -1},
    {1, -1},
    {-1, 0},
    {1, 0},
    {-1, 1},
    {0, 1},
    {1, 1},
}};

constexpr Sides sidesOf(CropHandle handle) {
    return sidesOfHandles[static_cast<std::size_t>(handle)];
}

/// One axis of the frame.
struct Span {
    double low, length;

    double high() const { return low + length; }
};

double draggedLength(const Span& span, int side, double place, double least) {
    if (side == 0) return span.length;
    return std::max(side < 0 ? span.high() - place : place - span.low, least);
}

/// The span at a new length: the side opposite to the moved one stands still, or the middle.
double originOf(const Span& span, int side, double length) {
    if (side < 0) return span.high() - length;
    if (side > 0) return span.low;
    return span.low - (length - span.length) / 2;
}

Span clampedSpan(const Span& span, double least, double room) {
    const double length = std::max(std::min(span.length, room), least);
    return {std::min(std::max(span.low, 0.0), room - length), length};
}

bool hasArea(const QRectF& rect) {
    return rect.width() > 0 && rect.height() > 0;
}

}  // namespace

double minCropSize(const QSizeF& imageSize) {
    constexpr double usual = 20;
    return std::min({usual, imageSize.width(), imageSize.height()});
}

QRectF draggedCropRect(const CropDrag& drag) {
    const Sides sides = sidesOf(drag.handle);
    const Span x{drag.initialRect.x(), drag.initialRect.width()};
    const Span y{drag.initialRect.y(), drag.initialRect.height()};
    const QPointF moved = cropHandlePosition(drag.handle, drag.initialRect) + drag.translation;
    const double least = minCropSize(drag.imageSize);
    double width = draggedLength(x, sides.x, moved.x(), least);
    double height = draggedLength(y, sides.y, moved.y(), least);
    if (drag.lockedRatio) {
        if (sides.x == 0) {
            width = height * *drag.lockedRatio;
        } else {
            height = width / *drag.lockedRatio;
        }
    }
    return clampedCropRect(
        {originOf(x, sides.x, width), originOf(y, sides.y, height), width, height}, drag.imageSize);
}

QRectF clampedCropRect(const QRectF& rect, const QSizeF& imageSize) {
    const QRectF standardised = rect.normalized();
    const double least = minCropSize(imageSize);
    const Span x = clampedSpan({standardised.x(), standardised.width()}, least, imageSize.width());
    const Span y =
        clampedSpan({standardised.y(), standardised.height()}, least, imageSize.height());
    return {x.low, y.low, x.length, y.length};
}

QPointF cropHandlePosition(CropHandle handle, const QRectF& rect) {
    const Sides sides = sidesOf(handle);
    return {rect.x() + rect.width() * (1 + sides.x) / 2,
            rect.y() + rect.height() * (1 + sides.y) / 2};
}

QPointF CropMapping::toImage(const QPointF& view) const {
    const QRectF image(QPointF(), imageSize);
    return hasArea(imageDisplayRect) ? mapped(view, imageDisplayRect, image) : QPointF();
}

QPointF CropMapping::toView(const QPointF& image) const {
    const QRectF whole(QPointF(), imageSize);
    return hasArea(whole) ? mapped(image, whole, imageDisplayRect) : imageDisplayRect.topLeft();
}

QRectF CropMapping::toView(const QRectF& image) const {
    return {toView(image.topLeft()), toView(image.bottomRight())};
}

QPointF CropMapping::translationToImage(const QPointF& view) const {
    return toImage(imageDisplayRect.topLeft() + view);
}

double cropToolbarY(const QRectF& frame, double viewHeight) {
    constexpr double distance = 28, leastY = 16;
    const double below = frame.bottom() + distance;
    return below > viewHeight ? std::max(frame.top() - distance, leastY) : below;
}

double cropSizeLabelY(const QRectF& frame) {
    constexpr double distance = 20, leastY = 18;
    return std::max(frame.top() - distance, leastY);
}

}  // namespace kestrio
