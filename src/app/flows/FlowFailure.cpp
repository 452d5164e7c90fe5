#include "app/flows/FlowFailure.h"

#include "capture/CaptureError.h"
#include "imaging/ExportError.h"

namespace kestrio {

namespace {

FlowFailure::Case caseOf(const std::exception& error) {
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
    failure.text_ = CaptureError::from(error).errorDescription();
    failure.reason_ = describeFailure(error);
    return failure;
}

ExitStatus FlowFailure::exitStatus() const {
    return isCancelled() ? ExitStatus::cancelled : ExitStatus::failed;
}

}  // namespace kestrio
