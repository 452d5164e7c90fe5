#pragma once

#include "core/Completion.h"
#include "platform/ScreenStream.h"

#include <memory>
#include <mutex>
#include <thread>

namespace kestrio {

/// Where a stream's frames go: to its handler, one at a time, whatever thread reads them.
class FrameSink {
  public:
    /// Waits for a call of the handler before, unless called from within it.
    void setHandler(ScreenStream::FrameHandler handler);
    /// Nothing happens once `isEnding` holds, which is asked when it is this frame's turn.
    void deliver(StreamedFrame frame, const std::function<bool()>& isEnding);

  private:
    std::recursive_mutex mutex_;
    // Shared: a handler may replace itself.
    std::shared_ptr<const ScreenStream::FrameHandler> handler_;
};

/// What a thread reads.
struct StreamPlace {
    QRect pixels;   ///< of the root window
    QRectF points;  ///< the same, of the desktop
    double scale = 1;
    int maximumRate = 1;  ///< a second
};

/// The thread of one start of a stream. Used by the main thread.
class StreamThread {
  public:
    /// `ended` is called on the main thread with the reason where the thread ends by itself after
    /// it has begun.
    StreamThread(std::shared_ptr<FrameSink> sink, ScreenStream::ErrorHandler ended);
    ~StreamThread() { end(); }

    StreamThread(const StreamThread&) = delete;
    StreamThread& operator=(const StreamThread&) = delete;

    /// Once. Completes when the first picture was read, or fails with ScreenStreamError. Completes
    /// at once where it was to stop before.
    Completion<> begin(StreamPlace place);
    /// Ends without a report; from now on no call of the handler begins.
    void requestStop();
    /// The same, and waits for the end, for a few seconds at most: a thread that hangs in a handler
    /// or in the server is left to itself.
    void end();
    /// Ends with this reason, unless it ends already.
    void fail(const QString& reason);
    /// Completes when the thread has done its last work, at once where none runs.
    Completion<> whenFinished();

  private:
    struct State;

    /// The last work of the thread.
    static void finish(const std::shared_ptr<State>& state);

    std::shared_ptr<State> state_;
    std::thread thread_;
};

}  // namespace kestrio
