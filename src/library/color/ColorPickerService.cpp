#include "library/color/ColorPickerService.h"

namespace kestrio {

namespace {

// Far outside of all pictures, and pixels around it can still be counted.
constexpr double farthest = 1e8;

/// The pixel under a point, which may lie outside the picture; nothing for points that are no
/// numbers and for pictures without a size.
std::optional<QPoint> pixelUnder(const Image& image, QPointF point) {
    const QSizeF points = image.pointSize();
    const auto along = [](double place, double length, int pixels) {
        return std::clamp(std::floor(place * pixels / length), -farthest, farthest);
    };
    if (image.isNull()) return std::nullopt;
    const double x = along(point.x(), points.width(), image.pixelSize().width());
    const double y = along(point.y(), points.height(), image.pixelSize().height());
    if (std::isnan(x) || std::isnan(y)) return std::nullopt;
    return QPoint(static_cast<int>(x), static_cast<int>(y));
}

}  // namespace

std::optional<CodableColor> ColorPickerService::colorAt(const Image& image, QPointF point) const {
    const auto pixel = pixelUnder(image, point);
    if (!pixel || !image.bitmap().valid(*pixel)) return std::nullopt;
    const QColor color = image.bitmap().pixelColor(*pixel);
    return CodableColor{color.red() / 255.0, color.green() / 255.0, color.blue() / 255.0,
                        color.alpha() / 255.0};
}

QImage ColorPickerService::pixelsAround(const Image& image, QPointF point, int radius) const {
    const auto pixel = pixelUnder(image, point);
    if (!pixel || radius < 0) return {};
    const QRect square(pixel->x() - radius, pixel->y() - radius, 2 * radius + 1, 2 * radius + 1);
    QImage around(square.size(), QImage::Format_ARGB32_Premultiplied);
    around.fill(Qt::transparent);
    const QRect inside = square & image.bitmap().rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(image.bitmap().constScanLine(y));
        auto* to = reinterpret_cast<QRgb*>(around.scanLine(y - square.top()));
        std::copy_n(from + inside.left(), inside.width(), to + inside.left() - square.left());
    }
    return around;
}

}  // namespace kestrio
