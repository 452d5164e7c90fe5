#pragma once

#include "capture/RegionSelector.h"
#include "capture/ScreenCaptureServiceProtocol.h"
#include "capture/ScreenSnapshotProvider.h"
#include "capture/WindowPicker.h"
#include "platform/Appearance.h"
#include "platform/ScreenPermission.h"
#include "settings/AppSettingsService.h"

namespace kestrio {

/// What the service works with.
struct ScreenCaptureDependencies {
    std::shared_ptr<ScreenPermission> permission;
    std::shared_ptr<Displays> displays;
    std::shared_ptr<ScreenSnapshotProviderProtocol> snapshots;
    std::shared_ptr<AppSettingsServiceProtocol> settings;
    std::shared_ptr<RegionSelector> regionSelector;
    std::shared_ptr<WindowPicker> windowPicker;
    /// How long a choice may go without any input before it is taken for hung.
    std::chrono::milliseconds idleLimit = std::chrono::seconds(30);
};

/// Captures what the user chooses on the screen. A start while another one waits replaces it. Its
/// end cancels what waits.
class ScreenCaptureService : public ScreenCaptureServiceProtocol {
  public:
    explicit ScreenCaptureService(ScreenCaptureDependencies dependencies);
    ~ScreenCaptureService() override;

    Task<RegionCaptureOutcome> startRegionCapture(std::stop_token stop) override;
    Task<CapturedImage> startWindowCapture(std::stop_token stop) override;
    Task<CapturedImage> captureDisplay(std::stop_token stop) override;

  private:
    /// Ends what waits, and gives the token of what starts now.
    std::stop_token replaceCurrent();

    ScreenCaptureDependencies dependencies_;
    std::stop_source current_;
};

}  // namespace kestrio
