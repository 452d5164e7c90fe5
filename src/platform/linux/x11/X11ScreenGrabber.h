#pragma once

#include "core/SerialQueue.h"
#include "platform/ScreenGrabber.h"
#include "platform/linux/x11/PixelReader.h"

namespace kestrio {

/// Grabs of the X server's root window and of single windows, on threads of the background.
class X11ScreenGrabber : public ScreenGrabber {
  public:
    Task<QImage> grabRectangle(QRect pixels, std::stop_token stop) override;
    Task<QImage> grabWindow(quint64 windowID, std::stop_token stop) override;

  private:
    // Used on the queue only, and outlive what is queued.
    XcbConnection connection_;
    PixelReader reader_{connection_};
    SerialQueue queue_{QStringLiteral("com.kestrio.screengrabber")};
};

}  // namespace kestrio
