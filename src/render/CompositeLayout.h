#pragma once

#include "render/style/FrameStyle.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>

namespace kestrio {

/// The geometry of one composition, and the only place where points of the canvas and pixels of the
/// output meet. All rectangles have their origin at the top left.
struct CompositeLayout {
    QSizeF canvasSize;        ///< points
    QSizeF outputSize;        ///< pixels, before rounding
    QSizeF imageSize;         ///< the screenshot, points
    double pixelDensity = 1;  ///< the screenshot's own pixels a point
    double padding = 0;       ///< points, 0 to 100
    FrameStyle frameStyle = FrameStyle::none;
    double frameScale = 1;  ///< below 0 acts as 0
    double leastBackdropScale = 1;
    /// The screenshot stands in its own size, whatever room there is.
    bool keepsPixels = false;
    /// With keepsPixels: an output pixel is one of the screenshot, which stands on whole ones.
    bool isOnWholePixels = false;

    /// True when all three sizes are finite and above 0 on both axes.
    bool isValid() const;

    /// The output's size in whole pixels, at least 1 x 1.
    QSize outputPixels() const;

    /// Output pixels a point across, the scale of everything on the screenshot.
    double scale() const;

    /// Output pixels a point for what is drawn on the backdrop, at least leastBackdropScale.
    double backdropScale() const;

    /// The frame's title bar in points, scaled by frameScale.
    double titleBarHeight() const;
};

/// The size of a rendered backdrop's points in pixels, for a canvas of `canvasSize` points on
/// `pixels`: the smaller axis' quotient, at least `least`. A canvas of a point or less counts as
/// one.
double backdropScale(QSizeF canvasSize, QSizeF pixels, double least = 1);

/// Where the screenshot stands, in output pixels: as large as padding and title bar allow, in its
/// own aspect ratio, or in its own size where the layout keeps pixels; the pair of title bar and
/// screenshot centred. Empty at the origin where nothing is left or the layout is not valid.
QRectF contentRect(const CompositeLayout& layout);

/// The padding in output pixels along x and y; in points where the layout is not valid.
QPointF scaledPadding(const CompositeLayout& layout);

}  // namespace kestrio
