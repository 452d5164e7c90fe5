#pragma once

#include "app/capture/EditorSteps.h"
#include "app/flows/SessionArbiter.h"
#include "app/shell/EditorOpener.h"
#include "app/shell/FailureNotice.h"
#include "app/shell/Toasts.h"
#include "capture/ScreenCaptureServiceProtocol.h"
#include "library/export/PictureExporter.h"
#include "library/pins/PinnedScreenshotCoordinator.h"
#include "platform/Alerts.h"
#include "platform/FileDialogs.h"
#include "scrolling/capture/ScrollingCaptureServiceProtocol.h"
#include "settings/AppSettingsService.h"

namespace kestrio {

/// What the captures of the program work with.
struct CaptureCollaborators {
    std::shared_ptr<ScreenCaptureServiceProtocol> screenCapture;
    std::shared_ptr<ScrollingCaptureServiceProtocol> scrollingCapture;
    std::shared_ptr<SessionArbiter> sessions;
    std::shared_ptr<EditorOpener> editors;
    std::vector<EditorStep> editorSteps;
    std::shared_ptr<PinnedScreenshotCoordinatorProtocol> pins;
    std::shared_ptr<PictureExporterProtocol> exporter;
    std::shared_ptr<AppSettingsServiceProtocol> settings;
    std::shared_ptr<FailureNotice> failures;
    std::shared_ptr<Alerts> alerts;
    std::shared_ptr<Toasts> toasts;
    std::shared_ptr<FileDialogs> fileDialogs;
};

}  // namespace kestrio
