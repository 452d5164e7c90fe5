#pragma once

#include "capture/RegionChoice.h"
#include "core/Task.h"
#include "imaging/CapturedImage.h"

namespace kestrio {

/// What a region capture yields.
struct RegionCaptureOutcome {
    CapturedImage capturedImage;
    RegionChoice choice;
};

/// Lets the user choose what to capture and captures it. Main thread only. Both throw CaptureError;
/// a stop ends the choice with CaptureError::cancelled.
class ScreenCaptureServiceProtocol {
  public:
    virtual ~ScreenCaptureServiceProtocol() = default;

    virtual Task<RegionCaptureOutcome> startRegionCapture(std::stop_token stop = {}) = 0;
    virtual Task<CapturedImage> startWindowCapture(std::stop_token stop = {}) = 0;
    /// The whole display under the pointer, without asking.
    virtual Task<CapturedImage> captureDisplay(std::stop_token stop = {}) = 0;
};

}  // namespace kestrio
