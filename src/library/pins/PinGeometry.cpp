#include "library/pins/PinGeometry.h"

#include <algorithm>

namespace kestrio {

QSizeF pinnedSize(QSizeF image) {
    double width = image.width();
    double height = image.height();
    if (width > largestPin) {
        height *= largestPin / width;
        width = largestPin;
    }
    if (height > largestPin) {
        width *= largestPin / height;
        height = largestPin;
    }
    return {std::max(width, smallestPin), std::max(height, smallestPin)};
}

double pinAspectRatio(QSizeF image) {
    return image.height() > 0 ? image.width() / image.height() : 1.0;
}

QSizeF resizedPin(QSizeF asked, double aspectRatio) {
    double width = std::clamp(asked.width(), smallestPin, largestPin);
    double height = width / aspectRatio;
    if (height < smallestPin || height > largestPin) {
        height = std::clamp(height, smallestPin, largestPin);
        width = std::clamp(height * aspectRatio, smallestPin, largestPin);
    }
    return {width, height};
}

QRectF centredPin(QSizeF size, const QRectF& visibleFrame) {
    QRectF place(QPointF(), size);
    place.moveCenter(visibleFrame.center());
    return place;
}

}  // namespace kestrio
