#include "capture/region/OverlayRegionSelector.h"

#include "capture/region/RegionCaptureWindow.h"

#include <QScopeGuard>

namespace kestrio {

namespace {

// What floats over everything, such as pins, lies over what is meant.
std::vector<WindowInfo> windowsToSnapTo(std::vector<WindowInfo> windows) {
    std::erase_if(windows, [](const WindowInfo& window) { return window.isAlwaysOnTop; });
    return windows;
}

Task<RegionCaptureResult> selectOn(OverlayServices services, bool isDark,
                                   RegionSelectionOptions options, std::stop_token stop) {
    auto looking = overlayGround(services, stop);
    OverlayGround ground = co_await looking;
    throwIfStopped(stop);
    const Completion<RegionCaptureResult> done(stop);
    auto* window = new RegionCaptureWindow(
        ground.display, std::move(ground.snapshot),
        options.snaps ? windowsToSnapTo(std::move(ground.windows)) : std::vector<WindowInfo>(),
        options, isDark, [done](std::optional<RegionCaptureResult> result) {
            if (result) {
                done.succeed(std::move(*result));
            } else {
                done.fail(std::make_exception_ptr(Cancelled()));
            }
        });
    const auto unplugged = failWithoutDisplay(services, ground.display, done);
    const auto closing = qScopeGuard([window, unplugged] {
        QObject::disconnect(unplugged);
        dismiss(window);
    });
    window->setInputListener(options.onInput);
    window->setLiveDimming(liveDimming(services));
    window->open();
    co_return co_await done;
}

}  // namespace

Task<RegionCaptureResult> OverlayRegionSelector::select(RegionSelectionOptions options,
                                                        std::stop_token stop) {
    return selectOn(services_, appearance_ && appearance_->isDark(), options, std::move(stop));
}

}  // namespace kestrio
