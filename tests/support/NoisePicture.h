#pragma once

#include <QImage>
#include <QRandomGenerator>

namespace kestrio {

/// Pixels of which none resembles its neighbours, the same at every call; with every alpha where
/// the format has one.
inline QImage noisePicture(QSize size,
                           QImage::Format format = QImage::Format_ARGB32_Premultiplied) {
    QRandomGenerator random(7);
    QImage bitmap(size, QImage::Format_ARGB32);
    // A row of this format has no bytes but its pixels.
    random.generate(reinterpret_cast<quint32*>(bitmap.bits()),
                    reinterpret_cast<quint32*>(bitmap.bits() + bitmap.sizeInBytes()));
    return bitmap.convertToFormat(format);
}

}  // namespace kestrio
