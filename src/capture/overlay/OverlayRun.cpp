#include "capture/overlay/OverlayRun.h"

#include "capture/CaptureError.h"
#include "capture/WindowPicker.h"
#include "core/Localisation.h"

namespace kestrio {

Task<OverlayGround> overlayGround(OverlayServices services, std::stop_token stop) {
    const auto display = services.displays->displayUnderPointer();
    if (!display) {
        throw CaptureError::systemError(Kestrio::tr("there is no display to capture"));
    }
    OverlayGround ground{*display, {}, {}};
    // The windows are listed while the pixels are read elsewhere.
    auto capturing = services.snapshots->captureDisplay(*display, stop);
    ground.windows = services.windowList->windowsOnScreen(smallestOfferedWindow);
    try {
        ground.snapshot = co_await capturing;
    } catch (const ScreenSnapshotError&) {
        // The screen is captured after the choice instead.
    }
    co_return ground;
}

LiveDimming liveDimming(const OverlayServices& services) {
    const bool isBlended = services.floating && services.floating->supportsTranslucency();
    return isBlended ? LiveDimming::translucent : LiveDimming::striped;
}

void dismiss(FrozenWindow* window) {
    window->hide();
    window->deleteLater();
}

std::exception_ptr displayGone() {
    return std::make_exception_ptr(
        CaptureError::systemError(Kestrio::tr("the display was disconnected during the capture")));
}

bool isConnected(const Displays& displays, const Display& display) {
    const auto all = displays.displays();
    return std::any_of(all.begin(), all.end(), [&](const Display& each) {
        return each.name == display.name && each.pixels == display.pixels;
    });
}

}  // namespace kestrio
