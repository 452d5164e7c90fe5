#pragma once

#include "app/capture/CaptureCoordinator.h"
#include "app/program/CountdownPresenter.h"
#include "app/program/ScrollingNotice.h"
#include "app/shell/EditorWindowCoordinator.h"
#include "platform/PlatformServices.h"

namespace kestrio {

/// One of everything that captures and opens pictures, wired up; the resident program and single
/// commands share it. Members are made on first use where they cost memory. Main thread.
struct ProgramParts {
    PlatformServices platform;
    std::shared_ptr<UserDefaults> userDefaults;
    std::shared_ptr<AppSettingsServiceProtocol> settings;
    std::shared_ptr<ThemeStorageServiceProtocol> themes;
    std::shared_ptr<ActivationState> activation;
    std::shared_ptr<PermissionManager> permissions;
    std::shared_ptr<SessionArbiter> sessions;
    std::shared_ptr<PictureExporterProtocol> exporter;
    std::shared_ptr<PinnedScreenshotCoordinator> pins;
    std::shared_ptr<Toasts> toasts;
    std::shared_ptr<DraftService> drafts;
    std::shared_ptr<EditorWindowCoordinator> editors;
    std::shared_ptr<CaptureCoordinator> captures;
    /// What a long capture says where it has no room on the screen; empty outside of one.
    std::shared_ptr<ScrollingNotice> scrollingNotice;
    std::shared_ptr<CountdownPresenter> countdown;

    static ProgramParts make(const PlatformServices& platform);
};

}  // namespace kestrio
