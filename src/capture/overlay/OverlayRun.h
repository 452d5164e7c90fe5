#pragma once

#include "capture/overlay/FrozenWindow.h"
#include "core/Completion.h"
#include "platform/FloatingWindows.h"

#include <QObject>
#include <memory>

namespace kestrio {

/// What overlays are made of.
struct OverlayServices {
    std::shared_ptr<Displays> displays;
    std::shared_ptr<ScreenSnapshotProviderProtocol> snapshots;
    std::shared_ptr<WindowList> windowList;
    std::shared_ptr<FloatingWindows> floating;
};

/// The display under the pointer, as it is now, and its windows.
struct OverlayGround {
    Display display;
    DisplaySnapshot snapshot;
    std::vector<WindowInfo> windows;
};

/// Throws CaptureError where no display is connected. A display that cannot be read comes without a
/// picture.
Task<OverlayGround> overlayGround(OverlayServices services, std::stop_token stop);

/// Fails `done` once the display is unplugged, until the returned connection is cut.
template <typename T>
QMetaObject::Connection failWithoutDisplay(const OverlayServices& services, const Display& display,
                                           Completion<T> done);

/// How a display without a picture is dimmed on this desktop.
LiveDimming liveDimming(const OverlayServices& services);

/// Takes the overlay from the screen at once and deletes it once its own calls are over.
void dismiss(FrozenWindow* window);

/// That a display which was being captured has gone, for users.
std::exception_ptr displayGone();
bool isConnected(const Displays& displays, const Display& display);

template <typename T>
QMetaObject::Connection failWithoutDisplay(const OverlayServices& services, const Display& display,
                                           Completion<T> done) {
    Displays* const displays = services.displays.get();
    return QObject::connect(displays, &Displays::changed, displays, [displays, display, done] {
        if (!isConnected(*displays, display)) done.fail(displayGone());
    });
}

}  // namespace kestrio
