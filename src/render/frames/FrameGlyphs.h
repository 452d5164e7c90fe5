#pragma once

#include <QColor>
#include <QPainter>
#include <QPointF>

namespace kestrio {

/// The small monochrome symbols on frames.
enum class FrameGlyph {
    chevronLeft,
    chevronRight,
    share,
    plus,
    lock,
    globe,
    sidebarLeft,
    appWindow,
    minimise,
    maximise,
    close,
};

/// How heavy the strokes of a symbol are.
enum class GlyphWeight { regular, medium };

/// How a symbol is drawn; sizes in units of the painter.
struct GlyphStyle {
    double size = 14;  ///< the side of its square
    QColor color;
    GlyphWeight weight = GlyphWeight::regular;
};

/// Draws a symbol centred at a point of the painter's coordinates.
void paintFrameGlyph(QPainter& painter, FrameGlyph glyph, QPointF centre, const GlyphStyle& style);

}  // namespace kestrio
