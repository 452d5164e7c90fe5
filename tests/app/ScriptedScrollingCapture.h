#pragma once

#include "scrolling/capture/ScrollingCaptureServiceProtocol.h"

#include <optional>
#include <vector>

namespace kestrio {

/// A service whose user is the test: each capture waits until it is finished or failed.
class ScriptedScrollingCapture : public ScrollingCaptureServiceProtocol {
  public:
    using Phase = CaptureSessionState::Phase;

    std::vector<ScrollingCaptureRequest> requests;

    bool isPending() const { return pending_.has_value(); }
    /// The capture under way tells whoever listened when it started.
    void enter(Phase phase) {
        if (told_) told_({phase});
    }
    void finish(CapturedImage image) { take()->succeed(std::move(image)); }
    void fail(const ScrollingCaptureError& error) { take()->fail(std::make_exception_ptr(error)); }
    void fail(ScrollingCaptureError::Case which) { fail(ScrollingCaptureError(which)); }

    void setStateObserver(StateObserver observer) override { observer_ = std::move(observer); }
    Task<CapturedImage> startScrollingCapture(ScrollingCaptureRequest request,
                                              std::stop_token stop) override {
        requests.push_back(std::move(request));
        told_ = observer_;
        const auto finished = pending_.emplace(std::move(stop));
        co_return co_await finished;
    }

  private:
    using Pending = Completion<CapturedImage>;

    std::optional<Pending> take() { return std::exchange(pending_, std::nullopt); }

    StateObserver observer_, told_;
    std::optional<Pending> pending_;
};

}  // namespace kestrio
