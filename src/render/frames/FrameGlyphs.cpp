#include "render/frames/FrameGlyphs.h"

#include <QPainterPath>

namespace kestrio {

namespace {

// All symbols are designed on a square of 24 units.
constexpr double grid = 24;

struct GlyphPaths {
    QPainterPath strokes;
    QPainterPath fills;
};

QPainterPath polyline(std::initializer_list<QPointF> points) {
    QPainterPath path(*points.begin());
    for (const QPointF& point : points)
        path.lineTo(point);
    return path;
}

GlyphPaths chevronLeft() {
    return {polyline({{15, 4}, {8, 12}, {15, 20}}), {}};
}

GlyphPaths chevronRight() {
    return {polyline({{9, 4}, {16, 12}, {9, 20}}), {}};
}

GlyphPaths share() {
    QPainterPath path = polyline({{8.5, 9}, {5, 9}, {5, 21}, {19, 21}, {19, 9}, {15.5, 9}});
    path.addPath(polyline({{12, 15}, {12, 2.5}}));
    path.addPath(polyline({{8, 6.5}, {12, 2.5}, {16, 6.5}}));
    return {path, {}};
}

GlyphPaths plus() {
    QPainterPath path = polyline({{12, 4}, {12, 20}});
    path.addPath(polyline({{4, 12}, {20, 12}}));
    return {path, {}};
}

GlyphPaths lock() {
    QPainterPath body;
    body.addRoundedRect(QRectF(4.5, 10.5, 15, 11), 2.5, 2.5);
    QPainterPath shackle(QPointF(8, 10.5));
    shackle.lineTo(8, 7);
    shackle.arcTo(QRectF(8, 3, 8, 8), 180, -180);
    shackle.lineTo(16, 10.5);
    return {shackle, body};
}

GlyphPaths globe() {
    QPainterPath path;
    path.addEllipse(QPointF(12, 12), 9, 9);
    path.addEllipse(QPointF(12, 12), 4, 9);
    path.addPath(polyline({{3, 12}, {21, 12}}));
    return {path, {}};
}

GlyphPaths sidebarLeft() {
    QPainterPath path;
    path.addRoundedRect(QRectF(2.5, 4.5, 19, 15), 3, 3);
    path.addPath(polyline({{9, 4.5}, {9, 19.5}}));
    path.addPath(polyline({{5, 8.5}, {6.7, 8.5}}));
    path.addPath(polyline({{5, 11.5}, {6.7, 11.5}}));
    return {path, {}};
}

GlyphPaths appWindow() {
    QPainterPath body;
    body.setFillRule(Qt::OddEvenFill);
    body.addRoundedRect(QRectF(2.5, 3.5, 19, 17), 3.5, 3.5);
    body.addRoundedRect(QRectF(5, 9, 14, 9), 1.5, 1.5);
    return {{}, body};
}

GlyphPaths minimise() {
    return {polyline({{4, 12}, {20, 12}}), {}};
}

GlyphPaths maximise() {
    QPainterPath path;
    path.addRoundedRect(QRectF(4.5, 4.5, 15, 15), 1.5, 1.5);
    return {path, {}};
}

GlyphPaths closeCross() {
    QPainterPath path = polyline({{4.5, 4.5}, {19.5, 19.5}});
    path.addPath(polyline({{19.5, 4.5}, {4.5, 19.5}}));
    return {path, {}};
}

struct GlyphRow {
    FrameGlyph glyph;
    GlyphPaths (*paths)();
};

constexpr GlyphRow glyphRows[] = {
    {FrameGlyph::chevronLeft, chevronLeft},
    {FrameGlyph::chevronRight, chevronRight},
    {FrameGlyph::share, share},
    {FrameGlyph::plus, plus},
    {FrameGlyph::lock, lock},
    {FrameGlyph::globe, globe},
    {FrameGlyph::sidebarLeft, sidebarLeft},
    {FrameGlyph::appWindow, appWindow},
    {FrameGlyph::minimise, minimise},
    {FrameGlyph::maximise, maximise},
    {FrameGlyph::close, closeCross},
};

}  // namespace

void paintFrameGlyph(QPainter& painter, FrameGlyph glyph, QPointF centre, const GlyphStyle& style) {
    const auto* const row =
        std::find_if(std::begin(glyphRows), std::end(glyphRows),
                     [glyph](const GlyphRow& each) { return each.glyph == glyph; });
    if (row == std::end(glyphRows)) return;
    const GlyphPaths paths = row->paths();
    const double strokeWidth = style.weight == GlyphWeight::medium ? 2.4 : 1.75;
    painter.save();
    painter.translate(centre);
    painter.scale(style.size / grid, style.size / grid);
    painter.translate(-grid / 2, -grid / 2);
    painter.fillPath(paths.fills, style.color);
    painter.strokePath(paths.strokes,
                       QPen(style.color, strokeWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.restore();
}

}  // namespace kestrio
