#include "editor/crop/CropSession.h"

#include <cmath>

namespace kestrio {

namespace {

/// The largest rectangle of a ratio within `rect`, around its middle.
QRectF fitted(const QRectF& rect, double ratio) {
    QSizeF size(rect.width(), rect.width() / ratio);
    if (size.height() > rect.height()) size = {rect.height() * ratio, rect.height()};
    QRectF result(QPointF(), size);
    result.moveCenter(rect.center());
    return result;
}

}  // namespace

void CropSession::begin(const QSizeF& size) {
    set_cropRect(QRectF(QPointF(), size));
    set_isCropMode(true);
}

void CropSession::end() {
    set_isCropMode(false);
    set_cropRect({});
    set_cropLockAspectRatio(false);
    set_cropLockedRatio(std::nullopt);
}

void CropSession::setCropRatio(std::optional<double> ratio) {
    if (ratio && !(*ratio > 0 && std::isfinite(*ratio))) return;
    set_cropLockAspectRatio(ratio.has_value());
    set_cropLockedRatio(ratio);
    if (ratio && isCropMode()) set_cropRect(fitted(cropRect(), *ratio));
}

}  // namespace kestrio
