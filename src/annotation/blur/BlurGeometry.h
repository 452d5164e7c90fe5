#pragma once

#include <QRectF>
#include <QSize>
#include <optional>

#include "imaging/filters/PixelRegion.h"

namespace kestrio {

/// How the canvas, in whose points blur annotations are expressed, lies on a bitmap. All origins
/// are top left.
class BlurGeometry {
  public:
    /// `contentRect` is the part of the picture that shows the canvas, in points of the picture,
    /// which has `pointSize`. Nothing where the canvas or the picture has no size.
    static std::optional<BlurGeometry> of(QSize bitmap, QSizeF pointSize, QSizeF canvasSize,
                                          QRectF contentRect);

    /// Pixels for a length of one point of the canvas; the mean of both axes.
    double lengthScale() const { return lengthScale_; }

    QRect extent() const { return extent_; }

    /// Every pixel that a rectangle touches; rectangles without area or with undefined coordinates
    /// touch none.
    PixelRegion pixelsUnder(const std::vector<QRectF>& canvasRects) const;

  private:
    QRect pixelsUnder(const QRectF& canvasRect) const;

    QRect extent_;
    QRectF contentRect_;
    /// Points of the picture for one of the canvas, and pixels for one point of the picture.
    double contentX_ = 1, contentY_ = 1, pixelX_ = 1, pixelY_ = 1;
    double lengthScale_ = 1;
};

}  // namespace kestrio
