#include "app/flows/FlowFailure.h"

#include "capture/CaptureError.h"
#include "core/Localisation.h"
#include "imaging/ExportError.h"
#include "scrolling/capture/ScrollingCaptureError.h"

namespace kestrio {

namespace {

FlowFailure::Case caseOf(const ScrollingCaptureError& error) {
    if (error.which() == ScrollingCaptureError::Case::cancelled)
        return FlowFailure::Case::cancelled;
    if (error.which() == ScrollingCaptureError::Case::permissionDenied)
        return FlowFailure::Case::permissionDenied;
    return FlowFailure::Case::alert;
}

FlowFailure::Case caseOf(const std::exception& error) {
    if (const auto* scrolling = dynamic_cast<const ScrollingCaptureError*>(&error))
        return caseOf(*scrolling);
    const auto* exporting = dynamic_cast<const ExportError*>(&error);
    if (exporting && exporting->errorCase() == ExportError::Case::userCancelled) {
        return FlowFailure::Case::cancelled;
    }
    switch (CaptureError::from(error).which()) {
        case CaptureError::Case::cancelled:
            return FlowFailure::Case::cancelled;
        case CaptureError::Case::permissionDenied:
            return FlowFailure::Case::permissionDenied;
        case CaptureError::Case::systemError:
        case CaptureError::Case::captureTimeout:
        case CaptureError::Case::invalidRegion:
        case CaptureError::Case::windowNotFound:
            break;
    }
    return FlowFailure::Case::alert;
}

}  // namespace

FlowFailure FlowFailure::from(const std::exception& error, const QString& title) {
    FlowFailure failure;
    failure.which_ = caseOf(error);
    if (failure.isCancelled()) return failure;
    failure.title_ = title;
    failure.reason_ = describeFailure(error);
    if (const auto* scrolling = dynamic_cast<const ScrollingCaptureError*>(&error)) {
        failure.title_ = Kestrio::tr("Scrolling Capture Error");
        failure.text_ = scrolling->errorDescription();
        failure.isReported_ = scrolling->isReported();
        return failure;
    }
    failure.text_ = CaptureError::from(error).errorDescription();
    return failure;
}

ExitStatus FlowFailure::exitStatus() const {
    return isCancelled() ? ExitStatus::cancelled : ExitStatus::failed;
}

}  // namespace kestrio
