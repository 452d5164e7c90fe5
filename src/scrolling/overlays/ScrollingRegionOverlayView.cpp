#include "scrolling/overlays/ScrollingRegionOverlayView.h"

#include "ui/Palette.h"

#include <QPainter>
#include <cmath>

namespace kestrio {

namespace {

constexpr int fadeTicks = 20;
// As long as a flash must stay to be seen, where it does not fade.
constexpr int steadyTicks = 6;
// Of the white: the glow outside the line is weaker than the line.
constexpr double glowStrength = 0.55;

QColor blended(const QColor& from, const QColor& to, double share) {
    const auto mix = [share](double a, double b) {
        return static_cast<float>(a + (b - a) * share);
    };
    return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
                            mix(from.blueF(), to.blueF()));
}

}  // namespace

void ScrollingRegionOverlayView::flash() {
    isFlashing = true;
    flashAlpha = 1;
    flashTicks_ = 0;
}

bool ScrollingRegionOverlayView::tick() {
    if (!isMoving()) return false;
    if (!isMotionReduced) dashPhase = std::fmod(dashPhase + animationSpeed, dashLength + gapLength);
    if (!isFlashing) return true;
    ++flashTicks_;
    const int length = isMotionReduced ? steadyTicks : fadeTicks;
    isFlashing = flashTicks_ < length;
    // Counted and not subtracted, so that it ends at nothing exactly.
    const double faded = 1 - static_cast<double>(flashTicks_) / fadeTicks;
    flashAlpha = !isFlashing ? 0 : isMotionReduced ? 1 : faded;
    return !isMotionReduced || !isFlashing;
}

void ScrollingRegionOverlayView::paint(QPainter& painter, const RegionRing& ring,
                                       const RingMeasures& measures) const {
    const QColor ground = Palette::light().overlayLine;
    painter.setBrush(Qt::NoBrush);
    const auto draw = [&](const QPen& pen) {
        painter.setPen(pen);
        painter.drawRoundedRect(ring.line, measures.corner, measures.corner);
    };
    if (isFlashing) {
        QColor glow = ground;
        glow.setAlphaF(static_cast<float>(flashAlpha * glowStrength));
        draw(QPen(glow, borderWidth + 2 * measures.outside));
    }
    draw(QPen(ground, borderWidth));
    QPen dashes(blended(borderColor, ground, flashAlpha), borderWidth, Qt::CustomDashLine,
                Qt::FlatCap);
    // Qt counts dashes in widths of the line.
    dashes.setDashPattern({dashLength / borderWidth, gapLength / borderWidth});
    dashes.setDashOffset(dashPhase / borderWidth);
    draw(dashes);
}

}  // namespace kestrio
