#pragma once

#include <QPainter>
#include <QRect>

namespace kestrio {

/// The pixels that can be painted, in the painter's coordinates, of a painter that is moved by
/// whole pixels at most.
inline QRect paintedPixels(const QPainter& painter) {
    const QPaintDevice* device = painter.device();
    const QRect whole(0, 0, device->width(), device->height());
    const QRect all = painter.deviceTransform().inverted().mapRect(whole);
    return painter.hasClipping() ? all & painter.clipBoundingRect().toAlignedRect() : all;
}

}  // namespace kestrio
