#pragma once

#include "imaging/Image.h"

#include <QDateTime>
#include <QRectF>

namespace kestrio {

/// A picture and where and when it was taken. `captureRect` is in points of the desktop, from the
/// top left of the primary display; a picture that was not captured has its own size at zero.
struct CapturedImage {
    Image image = {};
    QRectF captureRect = {};
    QDateTime captureDate = {};

    bool operator==(const CapturedImage& other) const {
        return image.bitmap() == other.image.bitmap() &&
               image.pointSize() == other.image.pointSize() && captureRect == other.captureRect &&
               captureDate == other.captureDate;
    }
};

}  // namespace kestrio
