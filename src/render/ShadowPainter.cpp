#include "render/ShadowPainter.h"

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
    {LightSource::topLeft, 8, 8},     {LightSource::top, 0, 8},     {LightSource::topRight, -8, 8},
    {LightSource::left, 8, 0},        {LightSource::center, 0, 0},  {LightSource::right, -8, 0},
    {LightSource::bottomLeft, 8, -8}, {LightSource::bottom, 0, -8}, {LightSource::bottomRight, -8, -8},
};

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
    const QRect visible = clip & bitmap.rect();
    const QRect bounds = cast.boundingRect().toAlignedRect().adjusted(-reach, -reach, reach, reach) &
                         visible.adjusted(-reach, -reach, reach, reach);
    if (bounds.isEmpty() || visible.isEmpty()) return;

    Mask mask = rasterise(cast, bounds);
    gaussianBlur(mask, sigma);
    const QColor color = QColor::fromRgbF(0, 0, 0, static_cast<float>(shadow.alpha));
    for (const QRect& part : QRegion(visible) - QRegion(covered)) {
        compositeColor(bitmap, mask, {0, 0}, color, part);
    }
}

}  // namespace kestrio
