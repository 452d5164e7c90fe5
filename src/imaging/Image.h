#pragma once

#include <QImage>
#include <QSizeF>

namespace kestrio {

/// A picture: an implicitly shared bitmap and its size in points. The bitmap is never changed after
/// the picture has been handed on.
///
/// The bitmap's format is QImage::Format_RGB32 where the picture is known to be opaque, otherwise
/// Format_ARGB32_Premultiplied; both hold 32-bit 0xAARRGGBB words, colours in sRGB, rows from the
/// top. A null bitmap makes a null picture.
class Image {
  public:
    Image() = default;

    /// A picture of one pixel a point, or of `pixelsPerPoint` pixels a point (above 0). Bitmaps of
    /// another format are converted.
    explicit Image(QImage bitmap, double pixelsPerPoint = 1.0);

    /// A picture of an explicit size in points.
    Image(QImage bitmap, QSizeF pointSize);

    bool isNull() const { return bitmap_.isNull(); }
    const QImage& bitmap() const { return bitmap_; }
    /// The bitmap of a picture that is given up, so that changing it copies nothing.
    QImage takeBitmap() && { return std::move(bitmap_); }
    QSize pixelSize() const { return bitmap_.size(); }
    QSizeF pointSize() const { return pointSize_; }

    /// True where every pixel is known to be opaque by the bitmap's format; reads no pixels.
    bool isOpaque() const { return bitmap_.format() == QImage::Format_RGB32; }

    /// The larger of the two axes' pixels per point, at least 1; 1 for a null picture and where the
    /// quotient is not a positive finite number. Points below 1 count as 1.
    double pixelDensity() const;

  private:
    QImage bitmap_;
    QSizeF pointSize_;
};

/// The same bitmap in one of the two formats that Image allows.
QImage inCanonicalFormat(QImage bitmap);

}  // namespace kestrio
