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

enum class GlyphWeight { regular, medium };

struct GlyphStyle {
    double size = 14;  ///< the side of its square
    QColor color;
    GlyphWeight weight = GlyphWeight::regular;
};

/// Draws a symbol centred at a point of the painter's coordinates.
void paintFrameGlyph(QPainter& painter, FrameGlyph glyph, QPointF centre, const GlyphStyle& style);

}  // namespace kestrio
