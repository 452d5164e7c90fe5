#pragma once

#include "core/Error.h"
#include "core/Task.h"
#include "platform/Displays.h"

#include <QImage>
#include <QRect>
#include <functional>
#include <vector>

namespace kestrio {

/// One picture of the region.
struct StreamedFrame {
    QImage image;                   ///< Format_RGB32, its own pixels; without the pointer
    QRectF contentRect;             ///< points of the desktop: what the picture shows
    double scaleFactor = 1;         ///< pixels a point
    std::vector<QRect> dirtyRects;  ///< pixels of the picture: what has changed since the frame
                                    ///< before; empty on the first
    double presentationTime = 0;    ///< seconds of a monotonic clock, when the pixels were read
};

struct ScreenStreamRequest {
    QRectF region;         ///< points of the desktop; within one display
    int maximumRate = 30;  ///< frames a second
};

/// A stream cannot begin or go on.
class ScreenStreamError : public Error {
  public:
    enum class Case {
        noDisplay,        ///< none is connected
        severalDisplays,  ///< the region does not lie within one of them
        stopped,          ///< for the reason that the text says
    };

    explicit ScreenStreamError(Case which) : which_(which) {}
    /// `stopped`, with a whole sentence that says why.
    explicit ScreenStreamError(QString reason)
        : which_(Case::stopped), reason_(std::move(reason)) {}
    Case which() const { return which_; }
    QString errorDescription() const override;

  private:
    Case which_;
    QString reason_;
};

/// Pictures of a region of the screen as it changes: one at once, and afterwards one whenever
/// something in the region has changed, but no more than a number of them a second. Pictures never
/// queue: the next is read once the handler has returned, and shows the screen of that moment.
/// Where a desktop cannot leave single windows out, as under X11, this program's own windows are in
/// the picture. Main thread only. One stream has one region at a time.
class ScreenStream {
  public:
    /// Called on a thread of the stream, one call at a time. It must not throw or wait for the main
    /// thread, which may be waiting for it.
    using FrameHandler = std::function<void(StreamedFrame)>;
    /// Called on the main thread, once, when the stream ends by itself, with the reason as a
    /// sentence. No frame comes afterwards.
    using ErrorHandler = std::function<void(QString)>;

    virtual ~ScreenStream() = default;

    /// Also while the stream runs, and from within the handler. Waits for a call that is going on;
    /// once this returns, the handler before is not called any more.
    virtual void setFrameHandler(FrameHandler handler) = 0;
    virtual void setErrorHandler(ErrorHandler handler) = 0;
    /// Returns once the first picture was read, which is then handed over. Ends the stream that ran
    /// before, of which no more frames come. Throws ScreenStreamError.
    virtual Task<void> start(ScreenStreamRequest request) = 0;
    /// No frame is handed over any more once this returns, which takes no longer than a few
    /// seconds; only a call of a handler that takes longer may still be going on. Ends a start that
    /// is going on too. Nothing happens where no stream runs.
    virtual Task<void> stop() = 0;
    /// How many times it was started.
    virtual int generation() const = 0;
};

/// The display on which the region can be streamed: the one that holds its midpoint, or the first.
/// Throws ScreenStreamError where no display is connected or the region leaves it.
Display displayForStream(const std::vector<Display>& displays, QRectF region);

}  // namespace kestrio
