#include "scrolling/overlays/PanelPlacement.h"

#include <algorithm>
#include <cmath>

namespace kestrio {

namespace {

// Between region and panel, in points: room for the frame and for a look at it.
constexpr double gap = 14;
// Between the panel and the edge of the free area.
constexpr double margin = 8;

double area(const QRectF& rectangle) {
    return rectangle.width() * rectangle.height();
}

// The nearest place in `free` to one at `wanted`; only where it fits.
QPointF keptWithin(const QRectF& free, QPointF wanted, QSizeF panel) {
    return {std::clamp(wanted.x(), free.left(), free.right() - panel.width()),
            std::clamp(wanted.y(), free.top(), free.bottom() - panel.height())};
}

std::optional<QRect> placeIn(const QRectF& free, QPointF wanted, QSize panel,
                             const QRectF& region) {
    if (panel.width() > free.width() || panel.height() > free.height()) return std::nullopt;
    const QPointF corner = keptWithin(free, wanted, panel);
    const QRect place(QPoint(qRound(corner.x()), qRound(corner.y())), panel);
    const bool isClear = !QRectF(place).intersects(region);
    return isClear ? std::optional(place) : std::nullopt;
}

std::optional<QRect> placeBeside(const QRectF& free, const QRectF& region, QSize panel) {
    // Sideways the panel begins where the region does, above and below it is centred.
    const double middle = region.center().x() - panel.width() / 2.0;
    const QPointF wanted[] = {
        {std::ceil(region.right() + gap), region.top()},
        {std::floor(region.left() - gap) - panel.width(), region.top()},
        {middle, std::ceil(region.bottom() + gap)},
        {middle, std::floor(region.top() - gap) - panel.height()},
    };
    const QRectF spared = region.adjusted(-gap, -gap, gap, gap);
    for (const QPointF& each : wanted)
        if (const auto place = placeIn(free, each, panel, spared)) return place;
    return std::nullopt;
}

QRectF freeArea(const Display& display) {
    return display.visibleFrame.adjusted(margin, margin, -margin, -margin);
}

}  // namespace

const Display* displayOfRegion(const std::vector<Display>& displays, const QRectF& region) {
    const auto most =
        std::max_element(displays.begin(), displays.end(), [&](const Display& a, const Display& b) {
            return area(a.bounds & region) < area(b.bounds & region);
        });
    return most == displays.end() ? nullptr : &*most;
}

std::optional<QRect> panelPlace(const QRectF& region, const std::vector<Display>& displays,
                                QSize panel) {
    const Display* home = displayOfRegion(displays, region);
    if (!home) return std::nullopt;
    if (const auto place = placeBeside(freeArea(*home), region, panel)) return place;
    for (const Display& each : displays) {
        // One that mirrors the region's display shows the region too.
        if (each.bounds.intersects(region)) continue;
        const QPointF wanted(region.center() - QPointF(panel.width(), panel.height()) / 2);
        if (const auto place = placeIn(freeArea(each), wanted, panel, region)) return place;
    }
    return std::nullopt;
}

}  // namespace kestrio
