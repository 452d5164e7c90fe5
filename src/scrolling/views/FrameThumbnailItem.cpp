#include "scrolling/views/FrameThumbnailItem.h"

#include <QPainter>
#include <algorithm>

namespace kestrio {

void FrameThumbnailItem::setPicture(const QImage& picture) {
    picture_ = picture;
    update();
    Q_EMIT pictureChanged();
}

void FrameThumbnailItem::paint(QPainter* painter) {
    if (picture_.isNull()) return;
    // The picture's own scale is not asked for: it counts in pixels, whatever made it small.
    const QSizeF pixels(picture_.size());
    const double scale = painter->device()->devicePixelRatioF();
    const double share =
        std::min({width() / pixels.width(), height() / pixels.height(), 1 / scale});
    QRectF place(QPointF(), pixels * share);
    place.moveCenter(QRectF(QPointF(), size()).center());
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawImage(place, picture_);
}

}  // namespace kestrio
