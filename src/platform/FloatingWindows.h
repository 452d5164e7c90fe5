#pragma once

class QWindow;

namespace kestrio {

/// What windows that float over all others need of the desktop. Main thread only.
class FloatingWindows {
  public:
    virtual ~FloatingWindows() = default;

    /// Whether windows with an alpha channel let shine through what lies below them.
    virtual bool supportsTranslucency() const = 0;
    /// Called before a window is shown: it will stand on all virtual desktops, beside windows that
    /// fill the screen, and is not given the focus when it appears.
    virtual void prepare(QWindow& window) = 0;
    /// Cuts a window's corners off in an arc of `radius` points, for desktops without translucency.
    /// To be called again after each change of size.
    virtual void roundCorners(QWindow& window, double radius) = 0;
};

}  // namespace kestrio
