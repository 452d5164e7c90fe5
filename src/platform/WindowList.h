#pragma once

#include <QRectF>
#include <QString>
#include <vector>

namespace kestrio {

/// A program's top-level window.
struct WindowInfo {
    quint64 windowID = 0;
    QString ownerName;   ///< the program's; "Unknown" where it does not say
    QString windowName;  ///< the title; may be empty
    QRectF bounds;       ///< points of the desktop; with title bar, without shadow
    bool isOnScreen = false;
    bool isAlwaysOnTop = false;  ///< it floats over the others, as pins do

    bool operator==(const WindowInfo&) const = default;
};

/// The windows of the desktop. Main thread only.
class WindowList {
  public:
    virtual ~WindowList() = default;

    /// The visible windows of programs, from front to back, without docks, menus, the desktop and
    /// this program's own overlays. Only windows strictly wider and taller than `minimumSize`, in
    /// points.
    virtual std::vector<WindowInfo> windowsOnScreen(double minimumSize) const = 0;
};

}  // namespace kestrio
