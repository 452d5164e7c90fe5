#pragma once

#include "platform/ScreenStream.h"

#include <QPainter>
#include <optional>
#include <thread>

namespace kestrio {

/// A stream of what a test paints and pushes. Frames reach the handler on a thread of their own,
/// and push() and paint() return when it has returned, so that a test sees all that it did.
class ScriptedScreenStream : public ScreenStream {
  public:
    std::vector<Display> displays = {
        {QStringLiteral("scripted"), {0, 0, 2000, 2000}, {}, {0, 0, 2000, 2000}, 1, true}};
    /// What the displays show, from the desktop's top left, in points that are pixels. Where it is
    /// null, nothing but pushed frames comes.
    QImage desktop;
    std::optional<ScreenStreamError> startFailure;  ///< thrown by every start where it is set
    bool isHeld = false;                            ///< starts wait for answerStarts()
    std::vector<ScreenStreamRequest> requests;      ///< of every start
    int stopCount = 0;
    bool isRunning = false;

    ~ScriptedScreenStream() override { answerStarts(); }

    void setFrameHandler(FrameHandler handler) override { frameHandler_ = std::move(handler); }
    void setErrorHandler(ErrorHandler handler) override { errorHandler_ = std::move(handler); }
    int generation() const override { return static_cast<int>(requests.size()); }

    Task<void> start(ScreenStreamRequest request) override {
        requests.push_back(request);
        isRunning = false;
        const int started = generation();
        const Completion<> answered;
        pending_.push_back(answered);
        if (!isHeld) answerStarts();
        co_await answered;
        if (started != generation() || stoppedGeneration_ == started) co_return;
        if (startFailure) throw ScreenStreamError(*startFailure);
        displayForStream(displays, request.region);
        isRunning = true;
        if (!desktop.isNull()) push(frameOf(request.region.toRect(), {}));
    }

    Task<void> stop() override {
        ++stopCount;
        stoppedGeneration_ = generation();
        isRunning = false;
        co_return;
    }

    void answerStarts() {
        for (const Completion<>& each : std::exchange(pending_, {}))
            each.succeed();
    }

    /// Nothing happens while the stream does not run.
    void push(StreamedFrame frame) {
        if (!isRunning || !frameHandler_) return;
        std::thread([handler = frameHandler_, &frame] { handler(std::move(frame)); }).join();
    }

    /// Changes the desktop, and streams it where that touches the region.
    void paint(QRect pixels, QColor color) {
        QPainter(&desktop).fillRect(pixels, color);
        if (!isRunning) return;
        const QRect region = requests.back().region.toRect();
        const QRect changed = pixels & desktop.rect() & region;
        if (!changed.isEmpty()) push(frameOf(region, {changed.translated(-region.topLeft())}));
    }

    /// The stream ends by itself.
    void end(const QString& reason) {
        if (!std::exchange(isRunning, false)) return;
        // A copy: the handler may set another one.
        if (const ErrorHandler handler = errorHandler_) handler(reason);
    }

  private:
    StreamedFrame frameOf(QRect region, std::vector<QRect> changes) {
        const auto time = std::chrono::steady_clock::now().time_since_epoch();
        return {desktop.copy(region).convertToFormat(QImage::Format_RGB32), region, 1,
                std::move(changes), std::chrono::duration<double>(time).count()};
    }

    FrameHandler frameHandler_;
    ErrorHandler errorHandler_;
    std::vector<Completion<>> pending_;
    int stoppedGeneration_ = 0;
};

}  // namespace kestrio
