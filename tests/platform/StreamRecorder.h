#pragma once

#include "platform/ScreenStream.h"

#include <atomic>
#include <mutex>

namespace kestrio {

/// Keeps the frames that a stream hands over, and how many calls there were at once.
class StreamRecorder {
  public:
    /// How long each call takes.
    std::atomic<std::chrono::milliseconds> duration = std::chrono::milliseconds(0);

    ScreenStream::FrameHandler handler() {
        return [this](StreamedFrame frame) {
            mostAtOnce_ = std::max<int>(mostAtOnce_, ++callCount_);
            std::this_thread::sleep_for(duration.load());
            {
                const std::lock_guard lock(mutex_);
                frames_.push_back(std::move(frame));
            }
            --callCount_;
        };
    }

    std::vector<StreamedFrame> frames() const {
        const std::lock_guard lock(mutex_);
        return frames_;
    }
    std::size_t count() const { return frames().size(); }
    StreamedFrame last() const { return frames().back(); }
    /// Since the start of the recorder.
    int mostAtOnce() const { return mostAtOnce_; }
    bool isCalled() const { return callCount_ > 0; }

  private:
    mutable std::mutex mutex_;
    std::vector<StreamedFrame> frames_;
    std::atomic<int> callCount_ = 0;
    std::atomic<int> mostAtOnce_ = 0;
};

}  // namespace kestrio
