#include "editor/canvas/CanvasViewport.h"

#include <cmath>

namespace kestrio {

namespace {

QSizeF turnedSize(const QSizeF& size, double degrees) {
    return QTransform().rotate(degrees).mapRect(QRectF(QPointF(), size)).size();
}

}  // namespace

CanvasViewport::CanvasViewport(const CompositeLayout& layout, const ImageTransform& transform,
                               QSizeF view, double margin, std::optional<double> pixelRatio)
    : canvasSize_(layout.canvasSize), imageSize_(layout.imageSize), rotation_(transform.rotation) {
    const QSizeF room = view - QSizeF(2 * margin, 2 * margin);
    if (!layout.isValid() || room.isEmpty()) return;
    CompositeLayout inPoints = layout;
    inPoints.outputSize = layout.canvasSize;
    content_ = kestrio::contentRect(inPoints);
    const QSizeF turned = turnedSize(canvasSize_, rotation_);
    const double fit =
        std::min({room.width() / turned.width(), room.height() / turned.height(), 1.0});
    scale_ = fit * transform.scale;
    center_ = {view.width() / 2 + transform.offset.width(),
               view.height() / 2 + transform.offset.height()};
    const QPointF half(canvasSize_.width() * scale_ / 2, canvasSize_.height() * scale_ / 2);
    QPointF corner = center_ - QTransform().rotate(rotation_).map(half);
    if (pixelRatio) {
        corner = {std::round(corner.x() * *pixelRatio) / *pixelRatio,
                  std::round(corner.y() * *pixelRatio) / *pixelRatio};
    }
    canvasToView_.translate(corner.x(), corner.y());
    canvasToView_.rotate(rotation_);
    canvasToView_.scale(scale_, scale_);
    viewToCanvas_ = canvasToView_.inverted();
}

QPointF CanvasViewport::toImage(const QPointF& view) const {
    const QPointF canvas = viewToCanvas(view);
    if (content_.isEmpty()) return canvas;
    const QPointF inside = canvas - content_.topLeft();
    return {inside.x() / content_.width() * imageSize_.width(),
            inside.y() / content_.height() * imageSize_.height()};
}

QPointF CanvasViewport::toView(const QPointF& image) const {
    return canvasToView_.map(imageToCanvas(image));
}

QPointF CanvasViewport::imageToCanvas(const QPointF& image) const {
    if (content_.isEmpty()) return image;
    return content_.topLeft() + QPointF(image.x() / imageSize_.width() * content_.width(),
                                        image.y() / imageSize_.height() * content_.height());
}

QRectF CanvasViewport::imageToCanvas(const QRectF& image) const {
    return {imageToCanvas(image.topLeft()), imageToCanvas(image.bottomRight())};
}

double CanvasViewport::imageScale() const {
    return content_.isEmpty() ? scale_ : scale_ * content_.width() / imageSize_.width();
}

}  // namespace kestrio
