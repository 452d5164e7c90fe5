#pragma once

#include <QRectF>

namespace kestrio {

/// The limits of a pin's window on either side, in points.
inline constexpr double smallestPin = 100;
inline constexpr double largestPin = 1200;

/// How large a picture of `image` points is pinned: as it is where it fits, else shrunk in its
/// ratio to the upper limit; then each side is raised to the lower one by itself.
QSizeF pinnedSize(QSizeF image);

/// Width divided by height; 1 for a picture without height.
double pinAspectRatio(QSizeF image);

/// The size that a pin takes when `asked` is wanted: the ratio kept, the width leading, both sides
/// within the limits where the ratio allows it.
QSizeF resizedPin(QSizeF asked, double aspectRatio);

/// The rectangle of a pin of that size in the middle of a display's free area.
QRectF centredPin(QSizeF size, const QRectF& visibleFrame);

}  // namespace kestrio
