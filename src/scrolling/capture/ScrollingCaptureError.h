#pragma once

#include "core/Error.h"

namespace kestrio {

/// Why a scrolling capture yielded no picture. A cancelled one is reported to nobody.
class ScrollingCaptureError : public Error {
  public:
    enum class Case {
        noOverlapFound,
        systemError,
        permissionDenied,
        accessibilityPermissionDenied,
        regionTooSmall,
        maxFramesExceeded,
        captureTimeout,
        insufficientFeatures,
        lowConfidence,
        insufficientFrames,
        stitchingFailed,
        memoryError,
        cancelled,
    };

    explicit ScrollingCaptureError(Case which) : which_(which) {}
    /// `frameIndex` counts from 0.
    static ScrollingCaptureError noOverlapFound(int frameIndex);
    /// `reason` is a sentence for the user.
    static ScrollingCaptureError systemError(QString reason);
    /// `obstacle` is what no permission would change, for users; empty where it can be granted.
    static ScrollingCaptureError permissionDenied(QString obstacle);
    /// A ScrollingCaptureError as it is, a Cancelled as `cancelled`, everything else wrapped as
    /// systemError.
    static ScrollingCaptureError from(const std::exception& error);

    Case which() const { return which_; }
    QString errorDescription() const override;

    /// The user has read it already, together with the offer to keep what was captured.
    bool isReported() const { return isReported_; }
    ScrollingCaptureError reported() const;

    bool operator==(const ScrollingCaptureError& other) const {
        return which_ == other.which_ && reason_ == other.reason_ &&
               frameIndex_ == other.frameIndex_;
    }

  private:
    Case which_;
    QString reason_;
    int frameIndex_ = 0;
    bool isReported_ = false;
};

}  // namespace kestrio
