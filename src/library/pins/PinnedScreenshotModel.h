#pragma once

#include "imaging/Image.h"

#include <QDateTime>
#include <QRectF>
#include <QUuid>

namespace kestrio {

/// A picture that floats on the desktop. Position and size are those that it was opened with, in
/// points.
struct PinnedScreenshotModel {
    QUuid id;
    Image image;
    double opacity = 1.0;
    QPointF position;
    QSizeF size;
    QDateTime createdAt;
};

}  // namespace kestrio
