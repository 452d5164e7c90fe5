#pragma once

#include "core/Task.h"
#include "imaging/CapturedImage.h"
#include "scrolling/capture/CaptureSession.h"
#include "settings/AppSettings.h"

namespace kestrio {

/// A scrolling capture as somebody asks for it.
struct ScrollingCaptureRequest {
    std::optional<ScrollingCaptureMode> mode = std::nullopt;  ///< that of the settings where absent
    /// Points of the desktop; the user chooses where absent. Where it is given, nobody may be
    /// there: automatic scrolling begins by itself, and nothing is asked.
    std::optional<QRectF> region = std::nullopt;
};

/// Captures pages that are longer than the screen. Main thread only.
class ScrollingCaptureServiceProtocol {
  public:
    using StateObserver = std::function<void(const CaptureSessionState&)>;

    virtual ~ScrollingCaptureServiceProtocol() = default;

    /// Told of each state of the captures that start afterwards.
    virtual void setStateObserver(StateObserver observer) = 0;
    /// Throws ScrollingCaptureError, also while another capture is active. A stop cancels.
    virtual Task<CapturedImage> startScrollingCapture(ScrollingCaptureRequest request,
                                                      std::stop_token stop = {}) = 0;
};

}  // namespace kestrio
