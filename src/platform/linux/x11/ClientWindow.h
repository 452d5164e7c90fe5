#pragma once

#include "platform/linux/x11/XcbConnection.h"

#include <QRect>
#include <QString>
#include <optional>

namespace kestrio {

/// What the server says about a program's top-level window.
struct ClientWindow {
    xcb_window_t id = XCB_WINDOW_NONE;
    QRect visible;  ///< pixels of the root; with title bar, without shadow
    QString ownerName;
    QString windowName;
    bool isAbove = false;  ///< kept above all others
};

/// All windows of programs that the user sees now, from the lowest to the topmost.
std::vector<ClientWindow> readClientWindows(XcbConnection& connection);

}  // namespace kestrio
