#pragma once

#include <QPointF>

namespace kestrio {

/// Turns the wheel in the user's place. What it does reaches the window under the pointer as if the
/// user had done it. Main thread only. Points are those of the desktop.
class SyntheticScroll {
  public:
    virtual ~SyntheticScroll() = default;

    /// Whether this program may and can turn the wheel.
    virtual bool isPermitted() const = 0;
    /// Asks the user for it, where the desktop can ask; whether it is permitted now.
    virtual bool requestPermission() = 0;
    /// Turns the wheel by `clicks` steps over a point; positive moves the content up. Moves the
    /// pointer there where it is elsewhere. Nothing happens without permission or off all displays.
    virtual void scroll(QPointF at, int clicks) = 0;

    /// Where the pointer is, to the pixel.
    virtual QPointF pointer() const = 0;
    /// Nothing happens without permission or for a point off all displays.
    virtual void movePointer(QPointF to) = 0;
};

}  // namespace kestrio
