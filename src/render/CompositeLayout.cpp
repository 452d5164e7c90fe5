#include "render/CompositeLayout.h"

#include <algorithm>
#include <cmath>

namespace kestrio {

namespace {

bool isPositive(double length) {
    return std::isfinite(length) && length > 0;
}

bool isPositive(QSizeF size) {
    return isPositive(size.width()) && isPositive(size.height());
}

double perPoint(double pixels, double points) {
    return points > 1 ? pixels / points : pixels;
}

// The screenshot in its own size, in the middle of `room` at `origin`, in output pixels.
QRectF ownSizeRect(const CompositeLayout& layout, QPointF origin, QSizeF room) {
    QSizeF size(
        layout.imageSize.width() * layout.outputSize.width() / layout.canvasSize.width(),
        layout.imageSize.height() * layout.outputSize.height() / layout.canvasSize.height());
    QPointF corner(origin.x() + (room.width() - size.width()) * 0.5,
                   origin.y() + (room.height() - size.height()) * 0.5);
    if (layout.isOnWholePixels) {
        size = {std::round(size.width()), std::round(size.height())};
        corner = {std::round(corner.x()), std::round(corner.y())};
    }
    return {corner, size};
}

int wholePixels(double length) {
    constexpr double most = 1 << 30;
    return std::max(1, static_cast<int>(std::lround(std::min(length, most))));
}

}  // namespace

bool CompositeLayout::isValid() const {
    return isPositive(canvasSize) && isPositive(outputSize) && isPositive(imageSize);
}

QSize CompositeLayout::outputPixels() const {
    return {wholePixels(outputSize.width()), wholePixels(outputSize.height())};
}

double CompositeLayout::scale() const {
    return outputSize.width() / std::max(canvasSize.width(), 1.0);
}

double CompositeLayout::backdropScale() const {
    return kestrio::backdropScale(canvasSize, outputSize, leastBackdropScale);
}

double CompositeLayout::titleBarHeight() const {
    return frameMetrics(frameStyle).titleBarHeight * std::max(frameScale, 0.0);
}

double backdropScale(QSizeF canvasSize, QSizeF pixels, double least) {
    return std::max(std::min(perPoint(pixels.width(), canvasSize.width()),
                             perPoint(pixels.height(), canvasSize.height())),
                    least);
}

QPointF scaledPadding(const CompositeLayout& layout) {
    if (!layout.isValid()) return {layout.padding, layout.padding};
    return {layout.padding * (layout.outputSize.width() / layout.canvasSize.width()),
            layout.padding * (layout.outputSize.height() / layout.canvasSize.height())};
}

QRectF contentRect(const CompositeLayout& layout) {
    if (!layout.isValid()) return {};
    const QPointF padding = scaledPadding(layout);
    const double titleBar =
        layout.titleBarHeight() * (layout.outputSize.height() / layout.canvasSize.height());
    const double availableWidth = layout.outputSize.width() - 2 * padding.x();
    const double availableHeight = layout.outputSize.height() - 2 * padding.y() - titleBar;
    if (!(availableWidth > 0 && availableHeight > 0)) return {};

    if (layout.keepsPixels) {
        return ownSizeRect(layout, {padding.x(), padding.y() + titleBar},
                           {availableWidth, availableHeight});
    }
    const double aspect = layout.imageSize.width() / layout.imageSize.height();
    double width = availableWidth;
    double height = availableHeight;
    if (availableWidth / availableHeight < aspect) {
        height = availableWidth / aspect;
    } else {
        width = availableHeight * aspect;
    }
    return {padding.x() + (availableWidth - width) * 0.5,
            padding.y() + titleBar + (availableHeight - height) * 0.5, width, height};
}

}  // namespace kestrio
