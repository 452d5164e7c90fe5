#pragma once

#include <QColor>
#include <QPainter>
#include <QString>

namespace kestrio {

/// How heavy a line of text is.
enum class FrameTextWeight { regular, medium };

/// A line of text on a frame.
struct FrameText {
    QString text;
    double size;  ///< units of the painter
    FrameTextWeight weight = FrameTextWeight::regular;
    QColor color;
};

/// The host that address fields show.
QString placeholderHost();

/// How far the line advances, in units of the painter.
double frameTextWidth(const FrameText& text);

/// Draws the line with its left end at `place`, its capitals centred on place.y(). Shaped without
/// hinting, so that it is the same picture at every scale.
void paintFrameText(QPainter& painter, const FrameText& text, QPointF place);

}  // namespace kestrio
