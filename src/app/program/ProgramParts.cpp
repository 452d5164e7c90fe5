#include "app/program/ProgramParts.h"

#include "app/shell/ToastPresenter.h"
#include "capture/ScreenCaptureService.h"
#include "capture/picker/OverlayWindowPicker.h"
#include "capture/region/OverlayRegionSelector.h"
#include "core/Localisation.h"
#include "imaging/text/SystemFont.h"
#include "render/watermark/WatermarkService.h"
#include "scrolling/capture/ScrollingCaptureService.h"
#include "scrolling/capture/StreamScrollingFrameSource.h"
#include "scrolling/overlays/ScrollingOverlays.h"
#include "scrolling/views/ScrollingStatusWindow.h"
#include "text/recognition/OCRService.h"

#include <QGuiApplication>
#include <QIcon>

namespace kestrio {

namespace {

constexpr double bodySize = 13;
constexpr std::chrono::milliseconds failureTime(3500);

Task<bool> asksToKeep(std::shared_ptr<Alerts> alerts, ScrollingCaptureError error,
                      std::stop_token stop) {
    AlertRequest request;
    request.title = Kestrio::tr("Scrolling Capture Error");
    request.text = error.errorDescription();
    request.buttons = {Kestrio::tr("Keep What Was Captured"), Kestrio::tr("Discard")};
    request.escapeButton = 0;  // it loses nothing
    auto shown = alerts->show(std::move(request), std::move(stop));
    const int button = co_await shown;
    co_return button == 0;
}

std::shared_ptr<ScrollingPresenter> scrollingPresenter(const PlatformServices& platform,
                                                       std::shared_ptr<ScrollingNotice> notice) {
    return std::make_shared<ScrollingOverlays>(
        ScrollingOverlayServices{platform.displays, platform.floatingWindows, platform.appearance,
                                 platform.globalHotkeys},
        statusWindows(platform.appearance, platform.floatingWindows),
        [notice](const QString& text) { notice->set_text(text); });
}

// Null where the desktop lets nobody follow the screen.
std::shared_ptr<ScrollingCaptureService> scrollingCapture(
    const ProgramParts& parts, std::shared_ptr<ScreenSnapshotProvider> snapshots,
    std::shared_ptr<RegionSelector> regions) {
    const PlatformServices& platform = parts.platform;
    if (!platform.makeScreenStream) return nullptr;
    ScrollingCaptureDependencies with;
    with.permission = platform.screenPermission;
    with.displays = platform.displays;
    with.settings = parts.settings;
    with.regionSelector = std::move(regions);
    with.snapshots = std::move(snapshots);
    with.wheel = platform.syntheticScroll;
    with.makeSource = [makeStream = platform.makeScreenStream] {
        return std::make_shared<StreamScrollingFrameSource>(makeStream(),
                                                            StreamScrollingFrameSource::Rates());
    };
    with.makePresenter = [platform, notice = parts.scrollingNotice] {
        return scrollingPresenter(platform, notice);
    };
    with.asksToKeep = [alerts = platform.alerts](ScrollingCaptureError error,
                                                 std::stop_token stop) {
        return asksToKeep(alerts, std::move(error), std::move(stop));
    };
    return std::make_shared<ScrollingCaptureService>(std::move(with));
}

CaptureCollaborators collaboratorsOf(const ProgramParts& parts) {
    CaptureCollaborators made;
    const auto& platform = parts.platform;
    const auto snapshots =
        std::make_shared<ScreenSnapshotProvider>(platform.screenGrabber, platform.displays);
    const OverlayServices overlay{platform.displays, snapshots, platform.windowList,
                                  platform.floatingWindows};
    const auto regions = std::make_shared<OverlayRegionSelector>(overlay, platform.appearance);
    made.screenCapture = std::make_shared<ScreenCaptureService>(ScreenCaptureDependencies{
        platform.screenPermission, platform.displays, snapshots, parts.settings, regions,
        std::make_shared<OverlayWindowPicker>(overlay)});
    made.scrollingCapture = scrollingCapture(parts, snapshots, regions);
    made.sessions = parts.sessions;
    made.editors = parts.editors;
    made.editorSteps = standardEditorSteps(parts.settings);
    made.pins = parts.pins;
    made.exporter = parts.exporter;
    made.settings = parts.settings;
    made.failures = std::make_shared<FailureNotice>(parts.permissions, parts.platform.alerts);
    made.alerts = parts.platform.alerts;
    made.toasts = parts.toasts;
    made.fileDialogs = parts.platform.fileDialogs;
    return made;
}

}  // namespace

ProgramParts ProgramParts::make(const PlatformServices& platform) {
    QGuiApplication::setFont(systemFont(bodySize, QFont::Normal));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/kestrio/app/kestrio.svg")));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    ProgramParts parts;
    parts.platform = platform;
    parts.userDefaults = std::make_shared<IniUserDefaults>(IniUserDefaults::standardPath());
    parts.settings = std::make_shared<AppSettingsService>(parts.userDefaults);
    parts.activation = std::make_shared<ActivationState>();
    parts.permissions =
        std::make_shared<PermissionManager>(platform.screenPermission, platform.alerts);
    parts.sessions = std::make_shared<SessionArbiter>();
    parts.scrollingNotice = std::make_shared<ScrollingNotice>();
    parts.exporter = std::make_shared<PictureExporter>(platform.pasteboard);
    parts.pins = std::make_shared<PinnedScreenshotCoordinator>(
        platform.displays, platform.floatingWindows, parts.exporter);
    parts.toasts = std::make_shared<ToastPresenter>(platform.displays, platform.floatingWindows);
    QObject::connect(
        parts.pins.get(), &PinnedScreenshotCoordinator::copyFailed, parts.pins.get(),
        [toasts = parts.toasts](const QString& message) { toasts->show(message, failureTime); });
    parts.themes = std::make_shared<ThemeStorageService>(parts.userDefaults);
    parts.drafts = std::make_shared<DraftService>();
    const auto styles = std::make_shared<EditorStylePersistenceService>(parts.userDefaults);
    const auto ocr = std::make_shared<OCRService>(platform.textRecognizer);
    const auto makeServices = [platform, defaults = parts.userDefaults, settings = parts.settings,
                               pins = parts.pins, exporter = parts.exporter, themes = parts.themes,
                               drafts = parts.drafts, styles, ocr] {
        EditorServices services = makeEditorServices(platform, defaults);
        // One for all windows, so that a change in one reaches the others.
        services.settings = settings;
        services.themes = themes;
        services.stylePersistence = styles;
        services.pins = pins;
        services.exporter = exporter;
        services.drafts = drafts;
        services.ocr = ocr;
        return services;
    };
    parts.editors = std::make_shared<EditorWindowCoordinator>(makeServices, parts.activation);
    parts.captures = std::make_shared<CaptureCoordinator>(collaboratorsOf(parts));
    parts.countdown = std::make_shared<CountdownPresenter>(
        parts.captures, platform.displays, platform.floatingWindows, platform.globalHotkeys);
    return parts;
}

}  // namespace kestrio
