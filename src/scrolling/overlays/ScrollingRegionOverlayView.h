#pragma once

#include "scrolling/overlays/RegionRing.h"

#include <QColor>

class QPainter;

namespace kestrio {

/// What the frame round a captured region looks like at one moment: dashes that walk round it, and
/// white that fades after each frame. It has no window; whoever shows it calls tick() thirty times
/// a second.
struct ScrollingRegionOverlayView {
    QColor borderColor;
    double borderWidth = 3;  ///< points, like all lengths here
    double dashLength = 8;
    double gapLength = 4;
    double animationSpeed = 0.5;   ///< that the dashes walk in a tick
    bool isMotionReduced = false;  ///< dashes stand still, and a flash is there or not

    double dashPhase = 0;  ///< how far the dashes have walked, below dash and gap together
    bool isFlashing = false;
    double flashAlpha = 0;  ///< of the white, 0 to 1

    /// Shows that a frame was accepted.
    void flash();
    /// Goes on by a tick and says whether something looks different now.
    bool tick();
    /// Whether ticks change anything at present.
    bool isMoving() const { return isFlashing || !isMotionReduced; }

    /// Paints the whole ring in points of the desktop over what is there.
    void paint(QPainter& painter, const RegionRing& ring, const RingMeasures& measures) const;

  private:
    int flashTicks_ = 0;
};

}  // namespace kestrio
