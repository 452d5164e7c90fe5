#include "capture/ScreenCaptureService.h"

#include "capture/CaptureError.h"
#include "capture/IdleLimit.h"

namespace kestrio {

namespace {

using Dependencies = ScreenCaptureDependencies;

template <typename T>
using Choosing = std::function<Task<T>(std::function<void()>, std::stop_token)>;

// An overlay needs it to leave the screen, and what it covered to be painted again.
constexpr std::chrono::milliseconds overlayLeaves(100);

void requirePermission(const Dependencies& with) {
    if (!with.permission->preflight()) {
        throw CaptureError::permissionDenied(with.permission->obstacle());
    }
}

Task<RegionCaptureOutcome> outcomeOf(Dependencies with, RegionCaptureResult result,
                                     std::stop_token stop) {
    RegionCaptureOutcome outcome;
    outcome.capturedImage.captureRect = result.rect;
    if (!result.image.isNull()) {
        outcome.capturedImage.image = std::move(result.image);
        outcome.choice = std::move(result.choice);
    } else {
        outcome.choice.action = result.choice.action;
        const auto leaving = sleepFor(overlayLeaves, stop);
        co_await leaving;
        if (result.rect.isEmpty()) throw CaptureError(CaptureError::Case::invalidRegion);
        auto capturing = with.snapshots->capture(result.rect, stop);
        outcome.capturedImage.image = co_await capturing;
    }
    outcome.capturedImage.captureDate = QDateTime::currentDateTime();
    co_return outcome;
}

Task<RegionCaptureOutcome> captureRegion(Dependencies with, std::stop_token stop) {
    const AppSettings settings = with.settings->load();
    const RegionSelectionOptions options{settings.confirmBeforeEditing,
                                         settings.snapToWindowInRegionCapture,
                                         settings.showMagnifierInRegionCapture};
    Choosing<RegionCaptureResult> select = [selector = with.regionSelector, options](
                                               std::function<void()> onInput,
                                               std::stop_token inner) {
        RegionSelectionOptions asked = options;
        asked.onInput = std::move(onInput);
        return selector->select(std::move(asked), std::move(inner));
    };
    auto selecting = withIdleLimit<RegionCaptureResult>(with.idleLimit, stop, std::move(select));
    RegionCaptureResult result = co_await selecting;
    auto finishing = outcomeOf(with, std::move(result), stop);
    co_return co_await finishing;
}

Task<CapturedImage> captureWindow(Dependencies with, std::stop_token stop) {
    Choosing<std::optional<WindowInfo>> pick =
        [picker = with.windowPicker](std::function<void()> onInput, std::stop_token inner) {
            return picker->pick(std::move(onInput), std::move(inner));
        };
    auto picking = withIdleLimit<std::optional<WindowInfo>>(with.idleLimit, stop, std::move(pick));
    const std::optional<WindowInfo> window = co_await picking;
    if (!window) throw CaptureError(CaptureError::Case::windowNotFound);
    const auto leaving = sleepFor(overlayLeaves, stop);
    co_await leaving;
    auto capturing = with.snapshots->captureWindow(*window, stop);
    Image image = co_await capturing;
    co_return CapturedImage{std::move(image), window->bounds, QDateTime::currentDateTime()};
}

Task<CapturedImage> captureWholeDisplay(Dependencies with, std::stop_token stop) {
    const auto display = with.displays->displayUnderPointer();
    if (!display) throw ScreenSnapshotError(ScreenSnapshotError::Case::display);
    auto capturing = with.snapshots->captureDisplay(*display, std::move(stop));
    DisplaySnapshot snapshot = co_await capturing;
    co_return CapturedImage{Image(std::move(snapshot.image), snapshot.scale), snapshot.bounds,
                            QDateTime::currentDateTime()};
}

// Runs a capture until it ends, the caller stops it or another one replaces it, and gives its
// failures the one type that callers know.
template <typename T>
Task<T> guarded(Dependencies with, std::stop_token caller, std::stop_token current,
                Task<T> (*capture)(Dependencies, std::stop_token)) {
    std::stop_source either;
    const std::stop_callback byCaller(caller, [either]() mutable { either.request_stop(); });
    const std::stop_callback byOther(current, [either]() mutable { either.request_stop(); });
    try {
        requirePermission(with);
        auto capturing = capture(std::move(with), either.get_token());
        T captured = co_await capturing;
        co_return captured;
    } catch (const ScreenGrabError& error) {
        if (error.which() == ScreenGrabError::Case::windowGone) {
            throw CaptureError(CaptureError::Case::windowNotFound);
        }
        throw CaptureError::from(error);
    } catch (const std::exception& error) {
        throw CaptureError::from(error);
    }
}

}  // namespace

ScreenCaptureService::ScreenCaptureService(ScreenCaptureDependencies dependencies)
    : dependencies_(std::move(dependencies)) {}

ScreenCaptureService::~ScreenCaptureService() {
    current_.request_stop();
}

std::stop_token ScreenCaptureService::replaceCurrent() {
    current_.request_stop();
    current_ = std::stop_source();
    return current_.get_token();
}

Task<RegionCaptureOutcome> ScreenCaptureService::startRegionCapture(std::stop_token stop) {
    return guarded<RegionCaptureOutcome>(dependencies_, std::move(stop), replaceCurrent(),
                                         captureRegion);
}

Task<CapturedImage> ScreenCaptureService::startWindowCapture(std::stop_token stop) {
    return guarded<CapturedImage>(dependencies_, std::move(stop), replaceCurrent(), captureWindow);
}

Task<CapturedImage> ScreenCaptureService::captureDisplay(std::stop_token stop) {
    return guarded<CapturedImage>(dependencies_, std::move(stop), replaceCurrent(),
                                  captureWholeDisplay);
}

}  // namespace kestrio
