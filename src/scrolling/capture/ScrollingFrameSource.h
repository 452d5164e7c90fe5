#pragma once

#include <QString>
#include <functional>

#include "core/Task.h"
#include "scrolling/capture/ScrollingFrame.h"

namespace kestrio {

/// Where frames come from while the user scrolls. Main thread, save for the frame handler.
class ScrollingFrameSourceProtocol {
  public:
    /// Called on a thread of the source, one call at a time; must not wait for the main thread.
    using FrameHandler = std::function<void(ScrollingSourceFrame)>;
    using ErrorHandler = std::function<void(QString)>;

    virtual ~ScrollingFrameSourceProtocol() = default;

    /// Once this returns, the handler before is not called any more.
    virtual void setFrameHandler(FrameHandler handler) = 0;
    /// Called on the main thread, once, where the source ends by itself, with the reason.
    virtual void setErrorHandler(ErrorHandler handler) = 0;
    /// `region` is in points of the desktop. Throws ScrollingCaptureError.
    virtual Task<> start(QRectF region) = 0;
    virtual Task<> stop() = 0;
};

}  // namespace kestrio
