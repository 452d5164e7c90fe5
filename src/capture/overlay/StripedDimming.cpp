#include "capture/overlay/StripedDimming.h"

#include <QPainter>
#include <cmath>
#include <vector>

namespace kestrio {

namespace {

// A third of the light is taken, about as much as from a frozen picture.
constexpr int stripeDistance = 3;
// What is more transparent than this lets the screen show through instead.
constexpr int leastAlpha = 96;

QRegion stripes(const QRect& all) {
    std::vector<QRect> rows;
    for (int y = all.top(); y <= all.bottom(); y += stripeDistance)
        rows.emplace_back(all.left(), y, all.width(), 1);
    QRegion region;
    region.setRects(rows.data(), static_cast<int>(rows.size()));
    return region;
}

}  // namespace

StripedDimming::StripedDimming(QSize points, double scale)
    : all_(QPoint(), points),
      scale_(scale),
      picture_(QSizeF(points.width() * scale, points.height() * scale).toSize(),
               QImage::Format_ARGB32_Premultiplied),
      stripes_(stripes(all_)) {
    picture_.setDevicePixelRatio(scale);
    picture_.fill(Qt::transparent);
}

void StripedDimming::repaint(const QRegion& points, const std::function<void(QPainter&)>& paint) {
    const QRegion region = points & all_;
    {
        QPainter painter(&picture_);
        painter.setClipRegion(region);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(all_, Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.setRenderHint(QPainter::Antialiasing);
        paint(painter);
    }
    painted_ -= region;
    for (const QRect& rect : region)
        painted_ += paintedWithin(rect);
}

QRegion StripedDimming::paintedWithin(const QRect& points) const {
    // Runs of each row, which are in the order that regions keep their rectangles in.
    std::vector<QRect> runs;
    for (int y = points.top(); y <= points.bottom(); ++y) {
        int start = -1;
        for (int x = points.left(); x <= points.right() + 1; ++x) {
            const bool isInside = x <= points.right() && isPainted(x, y);
            if (isInside && start < 0) start = x;
            if (isInside || start < 0) continue;
            runs.emplace_back(start, y, x - start, 1);
            start = -1;
        }
    }
    QRegion region;
    region.setRects(runs.data(), static_cast<int>(runs.size()));
    return region;
}

bool StripedDimming::isPainted(int x, int y) const {
    const auto pixel = [this](int point) { return static_cast<int>(std::floor(point * scale_)); };
    const int right = std::min(std::max(pixel(x + 1), pixel(x) + 1), picture_.width());
    const int bottom = std::min(std::max(pixel(y + 1), pixel(y) + 1), picture_.height());
    for (int row = pixel(y); row < bottom; ++row) {
        const auto* line = reinterpret_cast<const QRgb*>(picture_.constScanLine(row));
        for (int column = pixel(x); column < right; ++column)
            if (qAlpha(line[column]) >= leastAlpha) return true;
    }
    return false;
}

QRegion StripedDimming::shape(const QRegion& undimmed) const {
    return (stripes_ - undimmed) + painted_;
}

}  // namespace kestrio
