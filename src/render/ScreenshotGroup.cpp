#include "render/ScreenshotGroup.h"

#include "core/Clamp.h"
#include "imaging/filters/Mask.h"
#include "imaging/filters/Resample.h"
#include "render/ShadowPainter.h"
#include "render/frames/FramePainter.h"

#include <QPainter>

namespace kestrio {

namespace {

void drawClipped(QImage& output, const QImage& screenshot, const QRectF& target,
                 const QPainterPath& outline) {
    const QRect bounds = target.toAlignedRect() & output.rect();
    if (bounds.isEmpty()) return;
    const Mask clip = rasterise(outline, bounds);
    ScaledDraw draw;
    draw.target = target;
    draw.clip = &clip;
    drawScaled(output, screenshot, draw);
}

// The pixels of `rect` that an opaque picture with these corners surely covers.
QRect surelyCovered(const QRectF& rect, double cornerRadius) {
    const int inset = static_cast<int>(std::ceil(cornerRadius)) + 1;
    const QRect whole = rect.toAlignedRect();
    const QRect inner = whole.adjusted(inset, inset, -inset, -inset);
    return inner.isValid() ? inner : QRect();
}

void paintFrameless(QImage& output, const ScreenshotGroup& group, const QRectF& content) {
    const double scale = group.layout.scale();
    const double radius = framelessCornerRadius(group.mockup.cornerRadius) * scale;
    const QPainterPath outline = roundedRect(content, radius);
    if (group.mockup.shadowEnabled) {
        const bool isOpaque = !group.screenshot.hasAlphaChannel();
        paintShadow(output, outline, shadowMetrics(group.mockup), scale, output.rect(),
                    surelyCovered(content, radius));
        // The shadow is that of a white sheet, which shows where the picture is not opaque. Under
        // an opaque one it would only lighten the edge.
        if (!isOpaque) {
            QPainter painter(&output);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.fillPath(outline, Qt::white);
        }
    }
    drawClipped(output, group.screenshot, content, outline);
}

void paintFramed(QImage& output, const ScreenshotGroup& group, const QRectF& content) {
    const CompositeLayout& layout = group.layout;
    const FrameShape shape{layout.frameStyle, content, layout.frameScale * layout.scale(),
                           !group.screenshot.hasAlphaChannel()};
    // A stack is cut out along its extent, and its shadow with it.
    const bool isStack = frameMetrics(layout.frameStyle).backSheets > 0;
    const QRect clip = isStack ? shape.extent().toAlignedRect() : output.rect();
    if (group.mockup.shadowEnabled) {
        paintShadow(output, shape.silhouette(), shadowMetrics(group.mockup), layout.scale(), clip,
                    surelyCovered(shape.window(), shape.cornerRadius()));
    }
    {
        QPainter painter(&output);
        paintFrameBehindContent(painter, shape);
    }
    drawClipped(output, group.screenshot, content, shape.contentPath());
    QPainter painter(&output);
    paintFrameOverContent(painter, shape);
}

}  // namespace

double framelessCornerRadius(double setting) {
    constexpr double inset = 4;
    return clampedOr(setting - inset, 0, MockupSettings::cornerRadiusRange.greatest - inset);
}

void paintScreenshotGroup(QImage& output, const ScreenshotGroup& group) {
    const QRectF content = contentRect(group.layout);
    if (content.isEmpty() || group.screenshot.isNull()) return;
    if (group.layout.frameStyle == FrameStyle::none) {
        paintFrameless(output, group, content);
    } else {
        paintFramed(output, group, content);
    }
}

}  // namespace kestrio
