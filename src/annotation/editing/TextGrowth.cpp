#include "annotation/editing/TextGrowth.h"

#include "annotation/model/Geometry.h"
#include "annotation/painting/TextColumn.h"

#include <algorithm>

namespace kestrio {

namespace {

// In sizes of the font: room for the caret, and for what rounding takes of the last letter.
constexpr double slack = 0.1;

// Wider than any line; in sizes of the font.
constexpr double unlimited = 1e4;

TextColumn columnOf(const TextAnnotation& text, double width) {
    return TextColumn(text.text, {text.fontFamily.value_or(QString()), fontWeight(text.fontWeight),
                                  Qt::AlignLeft, width});
}

double unwrappedWidth(const TextAnnotation& text) {
    return (columnOf(text, unlimited).naturalWidth() + slack) * text.fontSize;
}

}  // namespace

TextGrowth textGrowth(const TextAnnotation& text, double right) {
    const QRectF box = text.bounds.normalized();
    const bool fits = text.text.isEmpty() || unwrappedWidth(text) <= box.width();
    return {box.size(), std::max(box.width(), right - box.left()), fits};
}

QRectF grownBox(const TextAnnotation& text, const TextGrowth& growth) {
    const QRectF box = text.bounds.normalized();
    if (!(text.fontSize > 0)) return box;
    double width = growth.leastSize.width();
    if (growth.growsWide) width = std::clamp(unwrappedWidth(text), width, growth.widest);
    const double height = columnOf(text, width / text.fontSize).height() * text.fontSize;
    QRectF grown(box.topLeft(), QSizeF(width, std::max(height, growth.leastSize.height())));
    // A turned box turns about its middle, which has moved.
    const QPointF corner = rotated(box.topLeft(), box.center(), text.rotation);
    grown.translate(corner - rotated(grown.topLeft(), grown.center(), text.rotation));
    return grown;
}

}  // namespace kestrio
