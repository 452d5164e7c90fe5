#include "render/ShadowPainter.h"

#include "core/Localisation.h"
#include "imaging/ExportError.h"
#include "imaging/filters/GaussianBlur.h"
#include "imaging/filters/Mask.h"

#include <QRegion>
#include <cmath>

namespace kestrio {

namespace {

struct IntensityRow {
    ShadowIntensity intensity;
    double blur;
    float alpha;
};

constexpr IntensityRow intensityRows[] = {
    {ShadowIntensity::low, 10, 0.15f},
    {ShadowIntensity::medium, 20, 0.25f},
    {ShadowIntensity::high, 30, 0.35f},
};

struct LightRow {
    LightSource light;
    double dx, dy;
};

constexpr LightRow lightRows[] = {
    {LightSource::topLeft, 8, 8},       {LightSource::top, 0, 8},
    {LightSource::topRight, -8, 8},     {LightSource::left, 8, 0},
    {LightSource::center, 0, 0},        {LightSource::right, -8, 0},
    {LightSource::bottomLeft, 8, -8},   {LightSource::bottom, 0, -8},
    {LightSource::bottomRight, -8, -8},
};

// A gibibyte, as heavy as the largest bitmap. Only a canvas of a few points on thousands of pixels
// throws its shadow further.
constexpr qint64 mostMaskPixels = qint64(1) << 30;

QRect grown(const QRect& rect, int margin) {
    return rect.isEmpty() ? QRect() : rect.adjusted(-margin, -margin, margin, margin);
}

}  // namespace

ShadowMetrics shadowMetrics(const MockupSettings& mockup) {
    ShadowMetrics metrics{};
    for (const IntensityRow& row : intensityRows) {
        if (row.intensity != mockup.shadowIntensity) continue;
        metrics.blur = row.blur;
        metrics.alpha = row.alpha;
    }
    for (const LightRow& row : lightRows) {
        if (row.light == mockup.lightSource) metrics.offset = {row.dx, row.dy};
    }
    return metrics;
}

void paintShadow(QImage& bitmap, const QPainterPath& silhouette, const ShadowMetrics& shadow,
                 double scale, QRect clip, QRect covered) {
    const double sigma = shadow.blur * scale / 2;
    const int reach = static_cast<int>(std::ceil(3 * sigma)) + 1;
    const QPainterPath cast =
        silhouette.translated(shadow.offset.x() * scale, -shadow.offset.y() * scale);
    const QRect shape = cast.boundingRect().toAlignedRect();
    const QRect visible = clip & bitmap.rect();
    const QRect casting = shape & grown(visible, reach);
    const QRect reached = visible & grown(shape, reach);
    if (casting.isEmpty() || reached.isEmpty()) return;
    const QRect bounds = casting | reached;
    if (qint64(bounds.width()) * bounds.height() > mostMaskPixels) {
        throw ExportError::renderingFailed(
            Kestrio::tr("the canvas has too few points for a shadow on so many pixels"));
    }

    Mask mask = rasterise(cast, bounds);
    gaussianBlur(mask, sigma);
    const QColor color = QColor::fromRgbF(0, 0, 0, static_cast<float>(shadow.alpha));
    for (const QRect& part : QRegion(visible) - QRegion(covered)) {
        compositeColor(bitmap, mask, {0, 0}, color, part);
    }
}

}  // namespace kestrio
