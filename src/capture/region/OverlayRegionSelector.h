#pragma once

#include "capture/RegionSelector.h"
#include "capture/overlay/OverlayRun.h"
#include "platform/Appearance.h"

namespace kestrio {

/// Chooses on the overlay.
class OverlayRegionSelector : public RegionSelector {
  public:
    OverlayRegionSelector(OverlayServices services, std::shared_ptr<Appearance> appearance)
        : services_(std::move(services)), appearance_(std::move(appearance)) {}

    Task<RegionCaptureResult> select(RegionSelectionOptions options, std::stop_token stop) override;

  private:
    OverlayServices services_;
    std::shared_ptr<Appearance> appearance_;
};

}  // namespace kestrio
