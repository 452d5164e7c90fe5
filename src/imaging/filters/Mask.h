#pragma once

#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QRect>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace kestrio {

/// 8-bit coverage over a rectangle of pixels: 0 outside a shape, 255 inside. Everything outside the
/// rectangle counts as 0.
class Mask {
  public:
    /// A mask of no pixels.
    Mask() = default;

    /// All 0 over `bounds`, in pixels from the top left; an invalid rectangle makes an empty mask.
    explicit Mask(QRect bounds);

    bool isEmpty() const { return coverage_.empty(); }
    const QRect& bounds() const { return bounds_; }

    /// The coverage of bounds().width() pixels in row `y` of bounds(), from bounds().left() on.
    /// Rows follow each other without gaps.
    const std::uint8_t* row(int y) const { return coverage_.data() + rowStart(y); }
    std::uint8_t* row(int y) { return coverage_.data() + rowStart(y); }

    /// The coverage of any pixel; for single look-ups.
    std::uint8_t at(QPoint pixel) const;

  private:
    std::size_t rowStart(int y) const {
        return static_cast<std::size_t>(y - bounds_.top()) * bounds_.width();
    }

    QRect bounds_;
    std::vector<std::uint8_t> coverage_;
};

/// The antialiased coverage of the path's inside over `bounds`; both in pixels from the top left,
/// pixel (x, y) being the square from (x, y) to (x + 1, y + 1). Parts outside `bounds` are cut off.
Mask rasterise(const QPainterPath& path, QRect bounds, Qt::FillRule fillRule);

/// The same with the path's own fill rule.
Mask rasterise(const QPainterPath& path, QRect bounds);

/// Draws a plain colour over the bitmap (source-over) through the mask, which is moved by `offset`
/// pixels first. Parts outside the bitmap are cut off.
void compositeColor(QImage& destination, const Mask& mask, QPoint offset, const QColor& color);

/// The same, touching only pixels of `clip`, in pixels of the bitmap.
void compositeColor(QImage& destination, const Mask& mask, QPoint offset, const QColor& color,
                    QRect clip);

}  // namespace kestrio
