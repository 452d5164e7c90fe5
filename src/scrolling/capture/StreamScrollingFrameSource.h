#pragma once

#include <memory>

#include "platform/ScreenStream.h"
#include "scrolling/capture/ScrollingFrameSource.h"

namespace kestrio {

/// Frames of a screen stream. The first is what the user saw first; later ones come when something
/// has changed, and the last change always comes.
class StreamScrollingFrameSource : public ScrollingFrameSourceProtocol {
  public:
    /// At most so many frames are read and delivered a second; less than 1 counts as 1.
    struct Rates {
        int maxFPS = 30;
        int deliveries = 15;
    };

    StreamScrollingFrameSource(std::shared_ptr<ScreenStream> stream, Rates rates);
    ~StreamScrollingFrameSource() override;

    void setFrameHandler(FrameHandler handler) override;
    void setErrorHandler(ErrorHandler handler) override;
    Task<> start(QRectF region) override;
    Task<> stop() override;

  private:
    std::shared_ptr<ScreenStream> stream_;
    Rates rates_;
};

}  // namespace kestrio
