#include "annotation/painting/Caption.h"
#include "annotation/painting/KindPainters.h"

namespace kestrio {

namespace {

/// In diameters: longer numbers are set smaller, so that they stay on the badge.
double fontScale(qsizetype digits) {
    constexpr double oneDigit = 0.55;
    if (digits <= 1) return oneDigit;
    return oneDigit * (digits == 2 ? 0.85 : 0.7);
}

/// At most what leaves the ends of a very long number on the badge.
double fittingFontSize(const QString& number, double diameter) {
    constexpr double widest = 0.86;
    const double fontSize = diameter * fontScale(number.size());
    const double width = captionSize(number, fontSize).width();
    return fontSize * std::min(1.0, diameter * widest / width);
}

}  // namespace

void paintRecord(QPainter& painter, const NumberAnnotation& badge,
                 const AnnotationMapping& mapping) {
    const double diameter = badge.size * mapping.strokeScale;
    if (!(diameter > 0)) return;
    const QPointF center = mapping.mapped(badge.center);
    painter.setPen(Qt::NoPen);
    painter.setBrush(badge.color.toQColor());
    painter.drawEllipse(center, diameter / 2, diameter / 2);
    const QString number = QString::number(badge.number);
    paintCaption(painter, number, center, fittingFontSize(number, diameter),
                 captionColorOn(badge.color));
}

}  // namespace kestrio
