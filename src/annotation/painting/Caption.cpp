#include "annotation/painting/Caption.h"

#include "imaging/text/SystemFont.h"

#include <QPainterPath>
#include <cmath>

namespace kestrio {

namespace {

// Outlines are taken at this size and scaled, so that they are alike at every size.
constexpr double outlineSize = 64;

QPainterPath outlineOf(const QString& text) {
    QPainterPath path;
    path.addText(0, 0, systemFont(outlineSize, QFont::DemiBold), text);
    return path;
}

double linear(double component) {
    const double c = std::clamp(component, 0.0, 1.0);
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

}  // namespace

QColor captionColorOn(const CodableColor& color) {
    // Relative luminance. Pure contrast would put black on a saturated red already; white looks
    // right on all but the pale colours.
    const double luminance =
        0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
    return luminance > 0.5 ? QColor(0x1d, 0x1d, 0x1f) : QColor(Qt::white);
}

QSizeF captionSize(const QString& text, double fontSize) {
    return outlineOf(text).boundingRect().size() * (fontSize / outlineSize);
}

void paintCaption(QPainter& painter, const QString& text, const QPointF& center, double fontSize,
                  const QColor& color) {
    const QPainterPath outline = outlineOf(text);
    const double scale = fontSize / outlineSize;
    painter.save();
    painter.translate(center);
    painter.scale(scale, scale);
    painter.translate(-outline.boundingRect().center());
    painter.fillPath(outline, color);
    painter.restore();
}

}  // namespace kestrio
