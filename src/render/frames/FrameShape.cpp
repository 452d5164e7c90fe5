#include "render/frames/FrameShape.h"

namespace kestrio {

QPainterPath roundedRect(const QRectF& rect, double radius) {
    QPainterPath path;
    const double most = std::min(rect.width(), rect.height()) / 2;
    const double limited = std::clamp(radius, 0.0, std::max(most, 0.0));
    path.addRoundedRect(rect, limited, limited);
    path.setFillRule(Qt::WindingFill);
    return path;
}

QRectF FrameShape::window() const {
    return content.adjusted(0, -frameMetrics(style).titleBarHeight * std::max(scale, 0.0), 0, 0);
}

QRectF FrameShape::titleBar() const {
    const QRectF whole = window();
    return {whole.topLeft(), QPointF(whole.right(), content.top())};
}

double FrameShape::cornerRadius() const {
    return frameMetrics(style).cornerRadius * std::max(scale, 0.0);
}

QPainterPath FrameShape::windowPath() const {
    return roundedRect(window(), cornerRadius());
}

QPainterPath FrameShape::sheetPath(int depth) const {
    const double offset = backSheetOffset * std::max(scale, 0.0) * depth;
    return roundedRect(window().translated(offset, offset), cornerRadius());
}

QPainterPath FrameShape::silhouette() const {
    QPainterPath path = windowPath();
    for (int depth = 1; depth <= frameMetrics(style).backSheets; ++depth) {
        path.addPath(sheetPath(depth));
    }
    path.setFillRule(Qt::WindingFill);
    return path;
}

QRectF FrameShape::extent() const {
    const double reach = backSheetOffset * std::max(scale, 0.0) * frameMetrics(style).backSheets;
    return window().adjusted(0, 0, reach, reach);
}

QPainterPath FrameShape::backgroundPath() const {
    if (!contentIsOpaque) return windowPath();
    // One point under the content, so that no seam shows between the two.
    QPainterPath bar;
    bar.addRect(titleBar().adjusted(0, 0, 0, std::max(scale, 0.0)));
    return windowPath().intersected(bar);
}

QPainterPath FrameShape::contentPath() const {
    QPainterPath inner;
    inner.addRect(content);
    return windowPath().intersected(inner);
}

}  // namespace kestrio
