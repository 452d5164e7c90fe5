#pragma once

#include <QPointF>
#include <QRectF>
#include <array>
#include <optional>

namespace kestrio {

// The crop frame. Rectangles of the crop are in points of the image, those on the screen in points
// of the view; both have their origin at the top left.

enum class CropHandle { topLeft, top, topRight, left, right, bottomLeft, bottom, bottomRight };

inline constexpr std::array<CropHandle, 8> cropHandles = {
    CropHandle::topLeft, CropHandle::top,        CropHandle::topRight, CropHandle::left,
    CropHandle::right,   CropHandle::bottomLeft, CropHandle::bottom,   CropHandle::bottomRight,
};

/// Side of a handle's square, in points of the view at every zoom.
inline constexpr double cropHandleSize = 12;

/// The least width and height of a crop: 20 points, or the image's shorter side where that is less.
double minCropSize(const QSizeF& imageSize);

/// A drag of one handle, as it stands now.
struct CropDrag {
    CropHandle handle;
    /// The frame when the drag began, which each step is counted from so that roundings do not add
    /// up and a drag back changes nothing.
    QRectF initialRect;
    QPointF translation;                ///< points of the image, since the drag began
    QSizeF imageSize;                   ///< points
    std::optional<double> lockedRatio;  ///< width by height, above 0
};

/// The frame that a drag makes, within the image. The opposite side stands still and the frame
/// never turns over. With a ratio, the width leads at the corners; an edge keeps the frame centred
/// on the other axis.
QRectF draggedCropRect(const CropDrag& drag);

/// The nearest rectangle within the image that is no smaller than the least crop.
QRectF clampedCropRect(const QRectF& rect, const QSizeF& imageSize);

/// Where a handle stands on a rectangle: a corner or the middle of an edge.
QPointF cropHandlePosition(CropHandle handle, const QRectF& rect);

/// The way between the view and the image, which is shown at `imageDisplayRect` of the view. A
/// rectangle or an image without area maps everything to its origin.
struct CropMapping {
    QRectF imageDisplayRect;
    QSizeF imageSize;

    QPointF toImage(const QPointF& view) const;
    QPointF toView(const QPointF& image) const;
    QRectF toView(const QRectF& image) const;
    /// A way in the view, such as a drag's translation, in points of the image.
    QPointF translationToImage(const QPointF& view) const;
};

/// The middle line of the toolbar of a frame (both in the view): below the frame, or above it where
/// the view ends too soon.
double cropToolbarY(const QRectF& frame, double viewHeight);
/// The middle line of the label above a frame that shows its size.
double cropSizeLabelY(const QRectF& frame);

}  // namespace kestrio
