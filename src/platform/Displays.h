#pragma once

#include <QObject>
#include <QRectF>
#include <QString>
#include <optional>
#include <vector>

namespace kestrio {

/// One monitor. Points are the units in which windows are placed; a display of scale 2 has two
/// pixels a point. Both coordinate systems have y downwards and start at the desktop's top left.
/// Displays of different scales leave gaps between each other in points, never in pixels.
struct Display {
    QString name;         ///< as the system calls its connector, unique
    QRectF bounds;        ///< points
    QRectF visibleFrame;  ///< points; without panels and docks
    QRect pixels;         ///< the same as `bounds`, in pixels of the whole desktop
    double scale = 1;     ///< pixels a point, at least 1
    bool isPrimary = false;

    bool operator==(const Display&) const = default;

    QPointF toPoints(QPointF pixel) const {
        return bounds.topLeft() + (pixel - QPointF(pixels.topLeft())) / scale;
    }
    QRectF toPoints(QRectF rectangle) const {
        return {toPoints(rectangle.topLeft()), rectangle.size() / scale};
    }
    QPointF toPixels(QPointF point) const {
        return QPointF(pixels.topLeft()) + (point - bounds.topLeft()) * scale;
    }
    QRectF toPixels(QRectF rectangle) const {
        return {toPixels(rectangle.topLeft()), rectangle.size() * scale};
    }
};

/// The one of them that holds this point; null where it lies in a gap or outside.
const Display* findDisplay(const std::vector<Display>& displays, QPointF point);

/// The monitors of the desktop. Main thread only.
class Displays : public QObject {
    Q_OBJECT

  public:
    /// All of them, the primary one first; empty only while none is connected.
    virtual std::vector<Display> displays() const = 0;
    /// Where the pointer is, in points of the desktop.
    virtual QPointF pointerPosition() const = 0;

    /// The display that holds this point; none where it lies in a gap or outside.
    std::optional<Display> displayAt(QPointF point) const;
    /// The display under the pointer, else the primary one, else none.
    std::optional<Display> displayUnderPointer() const;

    /// A display came, went, moved or changed its scale.
    Q_SIGNAL void changed();
};

}  // namespace kestrio
