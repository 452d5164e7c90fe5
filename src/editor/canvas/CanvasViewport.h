#pragma once

#include "annotation/painting/AnnotationMapping.h"
#include "render/CompositeRequest.h"

#include <QTransform>

namespace kestrio {

/// Where the canvas of a document stands in a view, and the way between the view's points, the
/// canvas' points (all annotations but blurs) and the screenshot's own (blurs, crop frame). The
/// canvas fits the view at zoom 1; a turn shows it turned about its middle.
class CanvasViewport {
  public:
    CanvasViewport() = default;
    /// `view` and `margin` in points of the view. Nothing is shown where either has no size.
    CanvasViewport(const CompositeLayout& layout, const ImageTransform& transform, QSizeF view,
                   double margin);

    bool isEmpty() const { return scale_ <= 0; }
    /// Points of the view for one of the canvas.
    double scale() const { return scale_; }
    double rotation() const { return rotation_; }
    /// The canvas in the view, before it is turned.
    QRectF canvasRect() const;
    /// The screenshot's place, in points of the canvas.
    const QRectF& contentRect() const { return content_; }

    QPointF toCanvas(const QPointF& view) const { return viewToCanvas_.map(view); }
    QPointF toView(const QPointF& canvas) const { return canvasToView_.map(canvas); }
    QPointF canvasToImage(const QPointF& canvas) const;
    QPointF imageToCanvas(const QPointF& image) const;
    QRectF imageToCanvas(const QRectF& image) const;
    QSizeF imageSize() const { return imageSize_; }

    /// Where records land on a picture of the unturned canvas with so many pixels a view's point,
    /// its origin the canvas' own.
    AnnotationMapping mapping(double pixelsPerViewPoint) const;

  private:
    QSizeF canvasSize_;
    QSizeF imageSize_;
    QRectF content_;
    QPointF origin_;
    double scale_ = 0;
    double rotation_ = 0;
    QTransform canvasToView_;
    QTransform viewToCanvas_;
};

}  // namespace kestrio
