#include "annotation/painting/PaintedExtent.h"

#include "annotation/model/AnnotationKind.h"
#include "annotation/painting/TextColumn.h"

#include <cmath>

namespace kestrio {

namespace {

/// Holds `rect` however it is turned about `center`.
QRectF turnedAnyhow(const QRectF& rect, const QPointF& center) {
    const double across = std::max(center.x() - rect.left(), rect.right() - center.x());
    const double down = std::max(center.y() - rect.top(), rect.bottom() - center.y());
    const double reach = std::hypot(across, down);
    return QRectF(center, QSizeF()).adjusted(-reach, -reach, reach, reach);
}

// A text that is longer than its box flows out of it below.
QRectF extentOf(const TextAnnotation& text) {
    const QRectF box = text.bounds.normalized();
    if (!(text.fontSize > 0) || !(box.width() > 0)) return box;
    const TextColumn column(
        text.text, {text.fontFamily.value_or(QString()), fontWeight(text.fontWeight), Qt::AlignLeft,
                    box.width() / text.fontSize});
    QRectF inked = box;
    inked.setHeight(std::max(box.height(), column.height() * text.fontSize));
    const double overhang = text.fontSize;  // of slanted and accented letters
    inked.adjust(-overhang, -overhang, overhang, overhang);
    return text.rotation == 0 ? inked : turnedAnyhow(inked, box.center());
}

// A row of pictograms is as high as one and as wide as all.
QRectF extentOf(const EmojiAnnotation& emoji) {
    const double width =
        emoji.size * static_cast<double>(std::max<qsizetype>(1, emoji.emoji.size()));
    QRectF row(QPointF(), QSizeF(width, emoji.size));
    row.moveCenter(emoji.center);
    return turnedAnyhow(row, emoji.center).adjusted(-2, -2, 2, 2);
}

/// Heads, ticks, labels and mitred corners.
template <typename Record>
QRectF decorated(const Record& record, const QRectF& inked) {
    constexpr double decorationMargin = 100;
    const double beyond = decorationMargin + 4 * std::abs(record.strokeWidth);
    return inked.adjusted(-beyond, -beyond, beyond, beyond);
}

QRectF extentOf(const RectangleAnnotation& rectangle) {
    const QRectF bounds = rectangle.bounds.normalized();
    return decorated(rectangle,
                     rectangle.rotation == 0 ? bounds : turnedAnyhow(bounds, bounds.center()));
}

/// Of kinds that paint near their bounds.
template <typename Record>
QRectF extentOf(const Record& record) {
    static_assert(!annotationKinds[recordIndex<Record>].outgrowsBounds,
                  "a kind that outgrows its bounds has an extent of its own");
    return decorated(record, record.boundingRect().normalized());
}

}  // namespace

QRectF paintedExtent(const AnyAnnotation& annotation) {
    return annotation.visit([](const auto& record) { return extentOf(record); });
}

}  // namespace kestrio
