#include "scrolling/capture/ScrollingCaptureError.h"

#include "core/Cancelled.h"
#include "core/Localisation.h"
#include "platform/DesktopWords.h"

namespace kestrio {

ScrollingCaptureError ScrollingCaptureError::noOverlapFound(int frameIndex) {
    ScrollingCaptureError error(Case::noOverlapFound);
    error.frameIndex_ = frameIndex;
    return error;
}

ScrollingCaptureError ScrollingCaptureError::systemError(QString reason) {
    ScrollingCaptureError error(Case::systemError);
    error.reason_ = std::move(reason);
    return error;
}

ScrollingCaptureError ScrollingCaptureError::permissionDenied(QString obstacle) {
    ScrollingCaptureError error(Case::permissionDenied);
    error.reason_ = std::move(obstacle);
    return error;
}

ScrollingCaptureError ScrollingCaptureError::from(const std::exception& error) {
    if (const auto* own = dynamic_cast<const ScrollingCaptureError*>(&error)) return *own;
    if (dynamic_cast<const Cancelled*>(&error)) return ScrollingCaptureError(Case::cancelled);
    return systemError(describeFailure(error));
}

ScrollingCaptureError ScrollingCaptureError::reported() const {
    ScrollingCaptureError error = *this;
    error.isReported_ = true;
    return error;
}

QString ScrollingCaptureError::errorDescription() const {
    switch (which_) {
        case Case::noOverlapFound:
            return Kestrio::tr(
                       "Frame %1 has no overlap with previous frame; content may be discontinuous")
                .arg(frameIndex_);
        case Case::systemError:
            return Kestrio::tr("System error: %1").arg(reason_);
        case Case::permissionDenied:
            if (!reason_.isEmpty()) return reason_;
            return Kestrio::tr("Screen recording permission denied. Please allow Kestrio in %1.")
                .arg(desktopWords().screenRecordingPage);
        case Case::accessibilityPermissionDenied:
            return Kestrio::tr(
                "Automatic scrolling is not possible: this desktop does not let programs turn the "
                "wheel. Please use manual scrolling.");
        case Case::regionTooSmall:
            return Kestrio::tr("Selected region is too small. Please select a larger area.");
        case Case::maxFramesExceeded:
            return Kestrio::tr("Maximum frame limit reached");
        case Case::captureTimeout:
            return Kestrio::tr("Capture timed out");
        case Case::insufficientFeatures:
            return Kestrio::tr("Insufficient image features for matching");
        case Case::lowConfidence:
            return Kestrio::tr("Match confidence too low");
        case Case::insufficientFrames:
            return Kestrio::tr("No captured frame is available for stitching.");
        case Case::stitchingFailed:
            return Kestrio::tr("Image stitching failed");
        case Case::memoryError:
            return Kestrio::tr("Out of memory. Please reduce the number of screenshots.");
        case Case::cancelled:
            return Kestrio::tr("Scrolling capture cancelled");
    }
    return {};
}

}  // namespace kestrio
