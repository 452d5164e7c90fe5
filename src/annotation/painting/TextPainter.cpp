#include "annotation/painting/KindPainters.h"
#include "annotation/painting/TextColumn.h"
#include "annotation/painting/Turn.h"

namespace kestrio {

void paintRecord(QPainter& painter, const TextAnnotation& text, const AnnotationMapping& mapping) {
    const QRectF box = text.bounds.normalized();
    if (text.text.isEmpty() || !(text.fontSize > 0) || !(box.width() > 0)) return;
    const TextColumn column(text.text,
                            {text.fontFamily.value_or(QString()), fontWeight(text.fontWeight),
                             qtAlignment(text.alignment), box.width() / text.fontSize});
    const QRectF painted = mapping.mapped(box);
    turnAround(painter, painted.center(), text.rotation);
    column.paint(painter, painted.topLeft(), text.fontSize * mapping.strokeScale,
                 text.color.toQColor());
}

}  // namespace kestrio
