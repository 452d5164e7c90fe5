#pragma once

#include "platform/Appearance.h"
#include "platform/FloatingWindows.h"
#include "scrolling/overlays/ScrollingRegionOverlayView.h"

#include <QObject>
#include <QTimer>
#include <memory>

namespace kestrio {

class RingStrip;

/// The frame round the region of a long capture, which lets all input through. Grabs of the screen
/// cannot leave windows out, so it is made of narrow windows that stand beside the region: nothing
/// of it lies inside, whatever happens to their shapes, and no memory is held for the region's
/// pixels. Main thread.
class ScrollingRegionOverlay : public QObject {
    Q_OBJECT

  public:
    ScrollingRegionOverlay(std::shared_ptr<FloatingWindows> floating,
                           std::shared_ptr<Appearance> appearance, QObject* parent = nullptr);
    ~ScrollingRegionOverlay() override;

    /// Both in points of the desktop; `display` holds the region.
    void show(const QRectF& region, const QRectF& display);
    void hide();
    bool isShown() const { return !strips_.empty(); }
    /// Shows that a frame was accepted.
    void flash();

  private:
    void tick();
    void updateTimer();
    void repaint();

    std::shared_ptr<FloatingWindows> floating_;
    std::shared_ptr<Appearance> appearance_;
    ScrollingRegionOverlayView view_;
    RingMeasures measures_;
    RegionRing ring_;
    std::vector<std::unique_ptr<RingStrip>> strips_;
    QTimer timer_;
};

}  // namespace kestrio
