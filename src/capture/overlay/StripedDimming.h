#pragma once

#include <QImage>
#include <QRegion>
#include <functional>

class QPainter;

namespace kestrio {

/// Darkens a live screen where no compositor blends windows: the window is cut into black stripes
/// with gaps through which the screen shows, and into what is painted over it. Points are the
/// window's; `scale` is its pixels a point.
class StripedDimming {
  public:
    StripedDimming(QSize points, double scale);

    /// Repaints these points on a transparent ground.
    void repaint(const QRegion& points, const std::function<void(QPainter&)>& paint);
    /// What was painted, in pixels.
    const QImage& picture() const { return picture_; }
    /// The parts that the window consists of: stripes but where the screen is to be shown as it is,
    /// and what was painted.
    QRegion shape(const QRegion& undimmed) const;

  private:
    QRegion paintedWithin(const QRect& points) const;
    bool isPainted(int x, int y) const;

    QRect all_;
    double scale_;
    QImage picture_;
    QRegion painted_;
    QRegion stripes_;
};

}  // namespace kestrio
