#pragma once

#include <QByteArrayView>
#include <QImage>

namespace kestrio {

/// The orientation, 1 to 8, that an Exif block (a TIFF header and what follows it) notes for the
/// picture; 1, upright, where it notes none or is damaged.
int exifOrientation(QByteArrayView tiff);

/// What uprightBitmap() needs beside a bitmap of this size, in bytes.
qint64 turnedBytes(QSize size, int orientation);

/// `bitmap` turned and mirrored to stand upright.
QImage uprightBitmap(QImage bitmap, int orientation);

}  // namespace kestrio
