#pragma once

#include "render/CompositeRequest.h"

#include <QTransform>
#include <optional>

namespace kestrio {

/// Where the canvas of a document stands in a view, and the way between the view's points, the
/// canvas' and the screenshot's own, in which annotations and the crop frame are. The canvas fits
/// the view at zoom 1; a turn shows it turned about its middle.
class CanvasViewport {
  public:
    CanvasViewport() = default;
    /// `view` and `margin` in points of the view. Nothing is shown where either has no size. Where
    /// the view's pixels a point are given, the canvas' top left corner moves onto a whole pixel,
    /// so that pictures of the canvas are shown pixel by pixel.
    CanvasViewport(const CompositeLayout& layout, const ImageTransform& transform, QSizeF view,
                   double margin, std::optional<double> pixelRatio = std::nullopt);

    bool isEmpty() const { return scale_ <= 0; }
    /// False where padding leaves no room for the screenshot, so that nothing can be marked.
    bool showsScreenshot() const { return !isEmpty() && !content_.isEmpty(); }
    /// Points of the view for one of the canvas.
    double scale() const { return scale_; }
    double rotation() const { return rotation_; }
    /// The size of the canvas in points of the view, before it is turned.
    QSizeF canvasSize() const { return canvasSize_ * scale_; }
    /// The middle of the canvas in the view, before it is moved onto whole pixels.
    const QPointF& center() const { return center_; }
    /// The screenshot's place, in points of the canvas.
    const QRectF& contentRect() const { return content_; }

    const QTransform& canvasToView() const { return canvasToView_; }
    QPointF canvasToView(const QPointF& canvas) const { return canvasToView_.map(canvas); }
    QPointF viewToCanvas(const QPointF& view) const { return viewToCanvas_.map(view); }

    /// Points of the screenshot; those of the canvas where there is no room for it.
    QPointF toImage(const QPointF& view) const;
    QPointF toView(const QPointF& image) const;
    QRectF imageToCanvas(const QRectF& image) const;
    /// Points of the view for one of the screenshot.
    double imageScale() const;
    QSizeF imageSize() const { return imageSize_; }

  private:
    QPointF imageToCanvas(const QPointF& image) const;

    QSizeF canvasSize_;
    QSizeF imageSize_;
    QRectF content_;
    QPointF center_;
    double scale_ = 0;
    double rotation_ = 0;
    QTransform canvasToView_;
    QTransform viewToCanvas_;
};

}  // namespace kestrio
