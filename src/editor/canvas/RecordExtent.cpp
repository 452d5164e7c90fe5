#include "editor/canvas/RecordExtent.h"

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
QRectF textExtent(const TextAnnotation& text) {
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
QRectF emojiExtent(const EmojiAnnotation& emoji) {
    const double width =
        emoji.size * static_cast<double>(std::max<qsizetype>(1, emoji.emoji.size()));
    QRectF row(QPointF(), QSizeF(width, emoji.size));
    row.moveCenter(emoji.center);
    return turnedAnyhow(row, emoji.center).adjusted(-2, -2, 2, 2);
}

}  // namespace

QRectF paintedExtent(const AnyAnnotation& record) {
    if (const auto* text = record.as<TextAnnotation>()) return textExtent(*text);
    if (const auto* emoji = record.as<EmojiAnnotation>()) return emojiExtent(*emoji);
    // Heads, ticks, labels and mitred corners.
    constexpr double decorationMargin = 100;
    const double beyond = decorationMargin + 4 * std::abs(record.strokeWidth());
    const QRectF bounds = record.bounds().normalized();
    const auto* rectangle = record.as<RectangleAnnotation>();
    const bool isTurned = rectangle && rectangle->rotation != 0;
    const QRectF inked = isTurned ? turnedAnyhow(bounds, bounds.center()) : bounds;
    return inked.adjusted(-beyond, -beyond, beyond, beyond);
}

}  // namespace kestrio
