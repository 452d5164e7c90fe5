#pragma once

#include <memory>

#include "capture/ScreenSnapshotProvider.h"
#include "platform/SyntheticScroll.h"
#include "scrolling/capture/ScrollingCaptureConfig.h"

namespace kestrio {

/// Scrolls the page under a region by turning the wheel, and waits until it stands still. Wheels
/// turn in clicks, and how far one moves a page depends on the page: it learns. Main thread.
class AutoScroller {
  public:
    AutoScroller(AutoScrollConfig config, std::shared_ptr<SyntheticScroll> wheel,
                 std::shared_ptr<ScreenSnapshotProviderProtocol> snapshots);
    /// Puts the pointer back to where the first scroll found it.
    ~AutoScroller();

    const AutoScrollConfig& config() const { return config_; }

    /// Moves the content up by about `distance` points, at least by one click, in up to `chunks`
    /// pieces. A stop ends it early, without throwing.
    Task<> scroll(QRectF region, int distance, int chunks, std::stop_token stop);
    /// Takes half of the last scroll back; false where it was a single click.
    bool scrollBack(QRectF region);
    /// The picture of `rectangle` (points) once it stands still, or when there is no more time.
    /// Null where the screen cannot be read.
    Task<QImage> waitForStabilization(QRectF rectangle, std::stop_token stop);
    /// A picture of it now; null where the screen cannot be read.
    Task<QImage> picture(QRectF rectangle);
    /// How far the last scroll moved the page, in points.
    void learn(double moved);

  private:
    AutoScrollConfig config_;
    std::shared_ptr<SyntheticScroll> wheel_;
    std::shared_ptr<ScreenSnapshotProviderProtocol> snapshots_;
    std::optional<QPointF> pointerBefore_;
    double pointsPerClick_;
    int lastClicks_ = 0;
};

}  // namespace kestrio
