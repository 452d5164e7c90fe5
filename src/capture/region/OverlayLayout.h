#pragma once

#include <QRectF>

namespace kestrio {

// Where things stand on the overlay, in points of the display from its top left corner.

/// The size label of the given size: below the selection, above it where there is no room. While a
/// toolbar is shown it takes the other side, or the inside.
QRectF sizeLabelPlace(const QRectF& selection, QSizeF label, QSizeF view, const QRectF& toolbar);
/// The toolbar: below the selection, above it where there is no room, always within the view.
QRectF toolbarPlace(const QRectF& selection, QSizeF toolbar, QSizeF view);
/// The magnifier: right of and above the pointer, on the other sides where there is no room.
QRectF magnifierPlace(QPointF pointer, QSizeF view);

}  // namespace kestrio
