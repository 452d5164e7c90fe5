#include "capture/region/OverlayLayout.h"

#include <algorithm>

namespace kestrio {

namespace {

constexpr double labelGap = 8;
constexpr double toolbarGap = 10;
constexpr double edgeMargin = 4;
constexpr double pointerGap = 24;
constexpr QSizeF magnifierSize(130, 150);

double heldInside(double place, double size, double whole, double margin) {
    return std::clamp(place, margin, std::max(margin, whole - size - margin));
}

}  // namespace

QRectF sizeLabelPlace(const QRectF& selection, QSizeF label, QSizeF view, const QRectF& toolbar) {
    const double x = heldInside(selection.center().x() - label.width() / 2, label.width(),
                                view.width(), edgeMargin);
    const double candidates[] = {selection.bottom() + labelGap,
                                 selection.top() - labelGap - label.height(),
                                 selection.top() + labelGap};
    for (const double y : candidates) {
        const QRectF place({x, y}, label);
        const bool isInside = y >= edgeMargin && place.bottom() <= view.height() - edgeMargin;
        if (isInside && !place.intersects(toolbar)) return place;
    }
    return {{x, selection.center().y() - label.height() / 2}, label};
}

QRectF toolbarPlace(const QRectF& selection, QSizeF toolbar, QSizeF view) {
    double y = selection.bottom() + toolbarGap;
    if (y + toolbar.height() > view.height() - edgeMargin) {
        y = selection.top() - toolbarGap - toolbar.height();
    }
    return {{heldInside(selection.center().x() - toolbar.width() / 2, toolbar.width(), view.width(),
                        edgeMargin),
             heldInside(y, toolbar.height(), view.height(), edgeMargin)},
            toolbar};
}

QRectF magnifierPlace(QPointF pointer, QSizeF view) {
    double x = pointer.x() + pointerGap;
    double y = pointer.y() - pointerGap - magnifierSize.height();
    if (x + magnifierSize.width() > view.width())
        x = pointer.x() - pointerGap - magnifierSize.width();
    if (y < 0) y = pointer.y() + pointerGap;
    return {{heldInside(x, magnifierSize.width(), view.width(), 0),
             heldInside(y, magnifierSize.height(), view.height(), 0)},
            magnifierSize};
}

}  // namespace kestrio
