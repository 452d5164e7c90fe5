#pragma once

#include "capture/WindowPicker.h"
#include "capture/overlay/OverlayRun.h"

namespace kestrio {

/// Picks on an overlay.
class OverlayWindowPicker : public WindowPicker {
  public:
    explicit OverlayWindowPicker(OverlayServices services) : services_(std::move(services)) {}

    Task<std::optional<WindowInfo>> pick(std::function<void()> onInput,
                                         std::stop_token stop) override;

  private:
    OverlayServices services_;
};

}  // namespace kestrio
