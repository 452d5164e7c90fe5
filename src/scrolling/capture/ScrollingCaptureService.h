#pragma once

#include "capture/RegionSelector.h"
#include "capture/ScreenSnapshotProvider.h"
#include "platform/Displays.h"
#include "platform/ScreenPermission.h"
#include "platform/SyntheticScroll.h"
#include "scrolling/capture/AutomaticScrolling.h"
#include "scrolling/capture/ManualScrolling.h"
#include "scrolling/capture/ScrollingCaptureServiceProtocol.h"
#include "scrolling/capture/StitchingMetrics.h"
#include "settings/AppSettingsService.h"

namespace kestrio {

/// What the service works with.
struct ScrollingCaptureDependencies {
    std::shared_ptr<ScreenPermission> permission;
    std::shared_ptr<Displays> displays;
    std::shared_ptr<AppSettingsServiceProtocol> settings;
    std::shared_ptr<RegionSelector> regionSelector;
    std::shared_ptr<ScreenSnapshotProviderProtocol> snapshots;
    std::shared_ptr<SyntheticScroll> wheel;
    std::function<std::shared_ptr<ScrollingFrameSourceProtocol>()> makeSource;
    std::function<std::shared_ptr<ScrollingPresenter>()> makePresenter;
    /// Tells the user of a failure and asks whether what was captured before is kept. Nobody is
    /// asked where it is empty.
    std::function<Task<bool>(ScrollingCaptureError error, std::stop_token stop)> asksToKeep;
    std::chrono::milliseconds captureTimeout = std::chrono::seconds(300);
    /// How long the choice of a region may go without any input.
    std::chrono::milliseconds idleLimit = std::chrono::seconds(30);
};

/// Runs one capture at a time, from the choice of a region to the tall picture. Its end cancels.
class ScrollingCaptureService : public ScrollingCaptureServiceProtocol {
  public:
    explicit ScrollingCaptureService(ScrollingCaptureDependencies dependencies,
                                     ScrollingCaptureConfig config = {});
    ~ScrollingCaptureService() override;

    void setStateObserver(StateObserver observer) override;
    Task<CapturedImage> startScrollingCapture(ScrollingCaptureRequest request,
                                              std::stop_token stop) override;

    /// Of the last capture that was put together.
    const StitchingMetrics& lastStitchingMetrics() const;
    const std::vector<StitchingWarning>& lastStitchingWarnings() const;

  private:
    struct Shared;

    std::shared_ptr<Shared> shared_;  // kept by a capture that outlives the service
};

}  // namespace kestrio
