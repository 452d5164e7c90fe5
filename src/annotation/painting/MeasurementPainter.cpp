#include "annotation/model/Geometry.h"
#include "annotation/painting/Caption.h"
#include "annotation/painting/KindPainters.h"
#include "annotation/painting/MeasurementLabel.h"

#include <QLineF>

namespace kestrio {

namespace {

// Sizes in points.
double labelFontSize(double strokeWidth) {
    return 11 + strokeWidth / 2;
}

double tickLength(double strokeWidth) {
    return 6 + strokeWidth * 2;
}

constexpr double labelMargin = 6;
constexpr double labelHeightInFonts = 1.7;

void paintLine(QPainter& painter, const QLineF& line, const QPen& pen, double tick) {
    painter.setPen(pen);
    painter.drawLine(line);
    if (!(line.length() > 0)) return;
    QLineF across = line.normalVector();
    across.setLength(tick / 2);
    const QPointF half = across.p2() - across.p1();
    for (const QPointF& end : {line.p1(), line.p2()})
        painter.drawLine(end - half, end + half);
}

/// On the line's middle, or beside it where the label would hide the whole line.
QPointF labelCenter(const QLineF& line, const QSizeF& label, double gap) {
    const QPointF middle = line.center();
    if (line.length() > label.width() + 2 * gap) return middle;
    const bool isUpright = std::abs(line.dy()) > std::abs(line.dx());
    return isUpright ? middle + QPointF(label.width() / 2 + gap, 0)
                     : middle - QPointF(0, label.height() / 2 + gap);
}

}  // namespace

QString measurementLabel(const MeasurementAnnotation& measurement, double pixelDensity) {
    const double points = distance(measurement.startPoint, measurement.endPoint);
    return QString::asprintf("%.0f px", points * pixelDensity);
}

void paintRecord(QPainter& painter, const MeasurementAnnotation& measurement,
                 const AnnotationMapping& mapping) {
    const double unit = mapping.strokeScale;
    const double width = std::max(measurement.strokeWidth, 0.0);
    const QLineF line(mapping.mapped(measurement.startPoint), mapping.mapped(measurement.endPoint));
    if (width > 0) {
        paintLine(painter, line,
                  QPen(measurement.color.toQColor(), width * unit, Qt::SolidLine, Qt::FlatCap),
                  tickLength(width) * unit);
    }

    const QString text = measurementLabel(measurement, mapping.pixelDensity);
    const double fontSize = labelFontSize(width) * unit;
    const QSizeF label(captionSize(text, fontSize).width() + 2 * labelMargin * unit,
                       fontSize * labelHeightInFonts);
    const QPointF center = labelCenter(line, label, tickLength(width) * unit);
    QRectF pill(QPointF(), label);
    pill.moveCenter(center);
    painter.setPen(Qt::NoPen);
    painter.setBrush(measurement.color.toQColor());
    painter.drawRoundedRect(pill, label.height() / 2, label.height() / 2);
    paintCaption(painter, text, center, fontSize, captionColorOn(measurement.color));
}

}  // namespace kestrio
