#pragma once

#include "platform/Displays.h"
#include "platform/WindowList.h"
#include "platform/linux/x11/XcbConnection.h"

namespace kestrio {

/// The windows that the window manager reports, and without one the windows on the root. Two round
/// trips to the server whatever their number: an overlay waits for the list.
class X11WindowList : public WindowList {
  public:
    X11WindowList(std::shared_ptr<XcbConnection> connection, std::shared_ptr<Displays> displays);

    std::vector<WindowInfo> windowsOnScreen(double minimumSize) const override;

  private:
    QRectF toPoints(QRect pixels) const;

    std::shared_ptr<XcbConnection> connection_;
    std::shared_ptr<Displays> displays_;
};

}  // namespace kestrio
