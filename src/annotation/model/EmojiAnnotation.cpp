#include "annotation/model/EmojiAnnotation.h"

#include "annotation/model/Geometry.h"

namespace kestrio {

QRectF EmojiAnnotation::boundingRect() const {
    return squareAround(center, size);
}

void EmojiAnnotation::reshape(const QRectF& rect) {
    center = rect.center();
    size = std::min(rect.width(), rect.height());
}

bool EmojiAnnotation::operator==(const EmojiAnnotation& other) const {
    return id == other.id && identical(center, other.center) && emoji == other.emoji &&
           size == other.size && rotation == other.rotation;
}

}  // namespace kestrio
