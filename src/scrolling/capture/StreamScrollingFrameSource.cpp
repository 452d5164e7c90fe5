#include "scrolling/capture/StreamScrollingFrameSource.h"

#include <algorithm>

#include "scrolling/capture/ScrollingCaptureError.h"

namespace kestrio {

namespace {

ScrollingSourceFrame sourceFrame(StreamedFrame frame, int sequenceNumber) {
    ScrollingFrameMetadata metadata;
    metadata.sequenceNumber = sequenceNumber;
    metadata.presentationTimeSeconds = frame.presentationTime;
    metadata.contentRect = frame.contentRect;
    metadata.scaleFactor = frame.scaleFactor;
    metadata.dirtyRects = std::move(frame.dirtyRects);
    metadata.hasDirtyRectMetadata = true;
    return {std::move(frame.image), std::move(metadata)};
}

Task<> startStream(std::shared_ptr<ScreenStream> stream, ScreenStreamRequest request) {
    try {
        auto starting = stream->start(request);
        co_await starting;
    } catch (const ScreenStreamError& error) {
        throw ScrollingCaptureError::systemError(error.errorDescription());
    }
}

}  // namespace

StreamScrollingFrameSource::StreamScrollingFrameSource(std::shared_ptr<ScreenStream> stream,
                                                       Rates rates)
    : stream_(std::move(stream)), rates_(rates) {}

StreamScrollingFrameSource::~StreamScrollingFrameSource() {
    stream_->setFrameHandler({});
    stream_->setErrorHandler({});
}

void StreamScrollingFrameSource::setFrameHandler(FrameHandler handler) {
    if (!handler) return stream_->setFrameHandler({});
    stream_->setFrameHandler([handler = std::move(handler), next = 0](StreamedFrame frame) mutable {
        // Nothing has changed in an empty extent.
        if (next > 0 && frame.dirtyRects.empty()) return;
        handler(sourceFrame(std::move(frame), next++));
    });
}

void StreamScrollingFrameSource::setErrorHandler(ErrorHandler handler) {
    stream_->setErrorHandler(std::move(handler));
}

Task<> StreamScrollingFrameSource::start(QRectF region) {
    // The stream reads no more than is delivered: a frame that were read and dropped might be the
    // last one, after which nothing changes any more.
    const int rate = std::max(std::min(rates_.maxFPS, rates_.deliveries), 1);
    return startStream(stream_, {region, rate});
}

Task<> StreamScrollingFrameSource::stop() {
    return stream_->stop();
}

}  // namespace kestrio
