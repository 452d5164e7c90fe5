#pragma once

#include "capture/RegionSelector.h"
#include "capture/ScreenSnapshotProvider.h"
#include "platform/SyntheticScroll.h"
#include "scrolling/capture/ScrollingFrameSource.h"
#include "support/ScrolledFrames.h"

#include <algorithm>
#include <thread>

namespace kestrio {

/// A screen that shows a page, which wheels and tests scroll. One pixel a point.
class ScrolledScreen : public ScreenSnapshotProviderProtocol, public SyntheticScroll {
  public:
    explicit ScrolledScreen(ScrolledFrames frames) : frames_(std::move(frames)) {}

    int position = 0;
    int pointsPerClick = 60;
    bool permitted = true;
    bool isReadable = true;
    QImage cover;  ///< shown instead of the page where it is not null
    std::vector<int> clicks;
    QPointF pointerPlace = {3, 4};

    QImage shown() const { return cover.isNull() ? frames_.at(position) : cover; }
    const ScrolledFrames& frames() const { return frames_; }
    QSize size() const { return {frames_.page().width(), frames_.height()}; }

    Task<Image> capture(QRectF rect, std::stop_token) override {
        if (!isReadable) throw ScreenSnapshotError(ScreenSnapshotError::Case::region);
        Image picture(shown().copy(rect.toRect()));
        co_return picture;
    }
    Task<Image> captureWindow(WindowInfo, std::stop_token) override { co_return Image(); }
    Task<DisplaySnapshot> captureDisplay(Display, std::stop_token) override {
        co_return DisplaySnapshot();
    }

    bool isPermitted() const override { return permitted; }
    bool requestPermission() override { return permitted; }
    void scroll(QPointF, int count) override {
        clicks.push_back(count);
        position = std::clamp(position + count * pointsPerClick, 0, frames_.furthest());
    }
    QPointF pointer() const override { return pointerPlace; }
    void movePointer(QPointF to) override { pointerPlace = to; }

  private:
    ScrolledFrames frames_;
};

/// Frames that a test hands over, on another thread as a real source does.
class ScriptedSource : public ScrollingFrameSourceProtocol {
  public:
    std::optional<QRectF> region;
    int stopCount = 0;
    std::function<void()> onStart;  ///< may throw

    void setFrameHandler(FrameHandler handler) override { frameHandler_ = std::move(handler); }
    void setErrorHandler(ErrorHandler handler) override { errorHandler_ = std::move(handler); }
    Task<> start(QRectF wanted) override {
        region = wanted;
        if (onStart) onStart();
        co_return;
    }
    Task<> stop() override {
        ++stopCount;
        co_return;
    }

    void push(const QImage& image) {
        if (!frameHandler_) return;
        ScrollingSourceFrame frame{image, {}};
        frame.metadata.sequenceNumber = next_++;
        std::thread([handler = frameHandler_, &frame] { handler(std::move(frame)); }).join();
    }
    void fail(const QString& reason) {
        if (errorHandler_) errorHandler_(reason);
    }

  private:
    FrameHandler frameHandler_;
    ErrorHandler errorHandler_;
    int next_ = 0;
};

/// Answers with the region that the test has chosen; cancels without one.
class ChosenRegion : public RegionSelector {
  public:
    std::optional<QRectF> region;

    Task<RegionCaptureResult> select(RegionSelectionOptions, std::stop_token) override {
        if (!region) throw Cancelled();
        co_return RegionCaptureResult{*region, {}, {}};
    }
};

}  // namespace kestrio
