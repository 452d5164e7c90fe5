#include "capture/CaptureError.h"

#include "core/Cancelled.h"
#include "core/Localisation.h"
#include "platform/DesktopWords.h"

namespace kestrio {

CaptureError CaptureError::systemError(QString reason) {
    CaptureError error(Case::systemError);
    error.reason_ = std::move(reason);
    return error;
}

CaptureError CaptureError::permissionDenied(QString obstacle) {
    CaptureError error(Case::permissionDenied);
    error.reason_ = std::move(obstacle);
    return error;
}

CaptureError CaptureError::from(const std::exception& error) {
    if (const auto* own = dynamic_cast<const CaptureError*>(&error)) return *own;
    if (dynamic_cast<const Cancelled*>(&error)) return CaptureError(Case::cancelled);
    return systemError(describeFailure(error));
}

QString CaptureError::errorDescription() const {
    switch (which_) {
        case Case::systemError:
            return Kestrio::tr("System error: %1").arg(reason_);
        case Case::permissionDenied:
            if (!reason_.isEmpty()) return reason_;
            return Kestrio::tr("Screen recording permission denied. Please allow Kestrio in %1.")
                .arg(desktopWords().screenRecordingPage);
        case Case::captureTimeout:
            return Kestrio::tr("Capture timed out. Please try again.");
        case Case::invalidRegion:
            return Kestrio::tr("Invalid region selected");
        case Case::windowNotFound:
            return Kestrio::tr("Target window not found");
        case Case::cancelled:
            return Kestrio::tr("Capture cancelled");
    }
    return {};
}

}  // namespace kestrio
