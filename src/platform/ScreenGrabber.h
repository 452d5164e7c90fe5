#pragma once

#include "core/Error.h"
#include "core/Task.h"

#include <QImage>
#include <QRect>

namespace kestrio {

/// Pixels could not be read.
class ScreenGrabError : public Error {
  public:
    enum class Case {
        unreadable,  ///< the system refuses, or the rectangle lies outside the desktop
        windowGone,  ///< there is no such window, or it is hidden
    };

    explicit ScreenGrabError(Case which) : which_(which) {}
    Case which() const { return which_; }
    QString errorDescription() const override;

  private:
    Case which_;
};

/// Reads pixels off the screen, bit for bit, without the pointer. Main thread only; what takes long
/// is done elsewhere. All throw ScreenGrabError, and Cancelled after a stop.
class ScreenGrabber {
  public:
    virtual ~ScreenGrabber() = default;

    /// What the screen shows there now, as Format_RGB32. `pixels` is in pixels of the desktop; what
    /// of it lies outside is cut off.
    virtual Task<QImage> grabRectangle(QRect pixels, std::stop_token stop = {}) = 0;
    /// A window with its title bar and without its shadow, also what other windows cover and what
    /// lies outside the screen. Opaque pictures are Format_RGB32; where the window is not a full
    /// rectangle the picture is Format_ARGB32_Premultiplied and what is not the window is clear.
    virtual Task<QImage> grabWindow(quint64 windowID, std::stop_token stop = {}) = 0;
};

}  // namespace kestrio
