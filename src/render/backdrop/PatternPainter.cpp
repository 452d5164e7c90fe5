#include "render/backdrop/PatternPainter.h"

#include "imaging/filters/Mask.h"
#include "render/backdrop/DistanceFields.h"
#include "render/backdrop/Grain.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <numbers>

namespace kestrio {

namespace {

constexpr double pi = std::numbers::pi;

struct PatternDrawing {
    QImage& bitmap;
    double width;
    double height;
    double scale;  // pixels a point
    double lineWidth;
    double intensity;    // 0 to 1
    CodableColor color;  // its alpha carries the intensity

    // Colours what lies within half of `thickness` of the field's lines.
    template <typename Field>
    void fill(const Field& field, double thickness) const {
        compositeColor(bitmap, maskAround(field, bitmap.size(), thickness), {0, 0},
                       color.toQColor());
    }

    template <typename Field>
    void fill(const Field& field) const {
        fill(field, lineWidth);
    }

    void stroke(const QPainterPath& path) const {
        QPainter painter(&bitmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.strokePath(
            path, QPen(color.toQColor(), lineWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    }
};

void drawCircles(const PatternDrawing& drawing) {
    const CirclesField field{drawing.width / 2, drawing.height / 2, 30 * drawing.scale,
                             std::max(drawing.width, drawing.height)};
    if (field.last >= field.pitch) drawing.fill(field);
}

void drawWaves(const PatternDrawing& drawing) {
    if (drawing.height < 20 * drawing.scale) return;
    drawing.fill(WavesField(drawing.bitmap.size(), drawing.scale));
}

void drawDots(const PatternDrawing& drawing) {
    const double radius = drawing.lineWidth * 1.5 / 2;
    drawing.fill(DotsField{15 * drawing.scale, radius}, 2 * radius);
}

void drawRays(const PatternDrawing& drawing) {
    constexpr int rays = 24;
    const QPointF centre(drawing.width / 2, drawing.height / 2);
    const double length = 1.5 * std::max(drawing.width, drawing.height);
    QPainterPath path;
    for (int ray = 0; ray < rays; ++ray) {
        const double angle = 2 * pi * ray / rays;
        path.moveTo(centre);
        path.lineTo(centre + length * QPointF(std::cos(angle), std::sin(angle)));
    }
    drawing.stroke(path);
}

void drawGrid(const PatternDrawing& drawing) {
    const double pitch = 20 * drawing.scale;
    QPainterPath path;
    for (int i = 0; i * pitch <= drawing.width; ++i) {
        const double x = i * pitch;
        path.moveTo(x, 0);
        path.lineTo(x, drawing.height);
    }
    for (int i = 0; i * pitch <= drawing.height; ++i) {
        const double y = i * pitch;
        path.moveTo(0, y);
        path.lineTo(drawing.width, y);
    }
    drawing.stroke(path);
}

void drawStripes(const PatternDrawing& drawing) {
    drawing.fill(StripesField{drawing.height, 10 * drawing.scale});
}

void drawNoise(const PatternDrawing& drawing) {
    drawPatternGrain(drawing.bitmap, drawing.color, drawing.intensity, drawing.scale);
}

using DrawFunction = void (*)(const PatternDrawing&);

struct PatternRow {
    PatternType type;
    DrawFunction draw;
};

constexpr PatternRow patternRows[] = {
    {PatternType::circles, drawCircles}, {PatternType::waves, drawWaves},
    {PatternType::dots, drawDots},       {PatternType::rays, drawRays},
    {PatternType::grid, drawGrid},       {PatternType::stripes, drawStripes},
    {PatternType::noise, drawNoise},
};

double lineWidth(double thickness, double scale) {
    return thickness >= 1 ? scale * 3 : scale * std::max(thickness * 3, 0.5);
}

}  // namespace

void drawPattern(QImage& bitmap, const PatternSettings& pattern, double scale) {
    const double intensity = PatternSettings::intensityRange.clamped(pattern.intensity);
    const PatternDrawing drawing{bitmap,
                                 double(bitmap.width()),
                                 double(bitmap.height()),
                                 scale,
                                 lineWidth(pattern.thickness, scale),
                                 intensity,
                                 pattern.color.withAlphaTimes(intensity)};
    for (const PatternRow& row : patternRows) {
        if (row.type == pattern.type) row.draw(drawing);
    }
}

}  // namespace kestrio
