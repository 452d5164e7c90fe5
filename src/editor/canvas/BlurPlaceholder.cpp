#include "editor/canvas/BlurPlaceholder.h"

#include <algorithm>
#include <cmath>

namespace kestrio {

namespace {

/// Undefined intensities count as none.
double strengthOf(const BlurAnnotation& blur) {
    return std::isfinite(blur.intensity) ? std::clamp(blur.intensity, 0.0, 1.0) : 0;
}

void paintFrost(QPainter& painter, const QRectF& rect, double strength) {
    const int veil = static_cast<int>(std::lround(185 + 50 * strength));
    QLinearGradient light(rect.topLeft(), rect.bottomRight());
    light.setColorAt(0, QColor(250, 251, 253, veil));
    light.setColorAt(0.5, QColor(226, 230, 238, veil));
    light.setColorAt(1, QColor(244, 246, 250, veil));
    painter.fillRect(rect, light);
}

/// Greys that look unordered, a pixel for each cell.
QImage cellTile() {
    constexpr int side = 16;
    QImage tile(side, side, QImage::Format_ARGB32_Premultiplied);
    std::uint32_t state = 1;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            state = state * 1664525u + 1013904223u;
            const int grey = 130 + static_cast<int>(state >> 26);
            tile.setPixelColor(x, y, QColor(grey, grey, grey + 6, 225));
        }
    }
    return tile;
}

void paintCells(QPainter& painter, const QRectF& rect, double strength) {
    constexpr double smallest = 2, largest = 10;
    static const QImage tile = cellTile();
    const double side = std::round(smallest + (largest - smallest) * strength);
    QBrush cells(tile);
    cells.setTransform(QTransform::fromTranslate(rect.x(), rect.y()).scale(side, side));
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.fillRect(rect, cells);
}

}  // namespace

void paintBlurPlaceholder(QPainter& painter, const BlurAnnotation& blur, const QRectF& rect) {
    painter.save();
    const double strength = strengthOf(blur);
    switch (blur.blurType) {
        case BlurType::gaussian:
            paintFrost(painter, rect, strength);
            break;
        case BlurType::pixelate:
            paintCells(painter, rect, strength);
            break;
        case BlurType::solid:
            painter.fillRect(rect,
                             QColor::fromRgbF(0, 0, 0, static_cast<float>(0.7 + 0.3 * strength)));
            break;
    }
    painter.restore();
}

}  // namespace kestrio
