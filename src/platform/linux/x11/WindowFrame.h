#pragma once

#include "platform/linux/x11/XcbConnection.h"

#include <QRect>
#include <QRegion>
#include <optional>

namespace kestrio {

/// The window below the root that holds a client's window: the window manager's frame, or the
/// client's window itself. Rectangles are in pixels of the root.
struct WindowFrame {
    xcb_window_t window = XCB_WINDOW_NONE;
    QRect outer;    ///< with the X border
    QRect visible;  ///< the part that a user takes for the window
    QRegion shape;  ///< what of it is drawn at all
    int depth = 0;
    xcb_visualid_t visual = 0;
};

/// None where the client's window is gone or not on the screen.
std::optional<WindowFrame> findFrame(XcbConnection& connection, xcb_window_t client);

/// Whether another window lies over a part of it.
bool isCovered(XcbConnection& connection, const WindowFrame& frame);

}  // namespace kestrio
