#include "render/preview/BlurredScreenshotPreviewLayer.h"

#include "annotation/blur/BlurEffectRenderer.h"

namespace kestrio {

BlurredScreenshotPreviewLayer::BlurredScreenshotPreviewLayer(
    std::shared_ptr<WatermarkServiceProtocol> watermarkService, QObject* parent)
    : QObject(parent), watermarkService_(std::move(watermarkService)) {
    using Layer = BlurredScreenshotPreviewLayer;
    for (const auto signal : {&Layer::imageChanged, &Layer::annotationsChanged,
                              &Layer::watermarkEnabledChanged, &Layer::watermarkSettingsChanged}) {
        connect(this, signal, this, &Layer::requestChanged);
    }
}

BlurredScreenshotPreviewLayer::~BlurredScreenshotPreviewLayer() {
    stop_.request_stop();
}

std::optional<RenderRequest> BlurredScreenshotPreviewLayer::presentRequest() const {
    if (image().isNull()) return std::nullopt;
    return RenderRequest{image().bitmap().cacheKey(), annotations(), watermarkEnabled(),
                         watermarkSettings()};
}

std::optional<Image> BlurredScreenshotPreviewLayer::presentResult() const {
    const auto request = presentRequest();
    if (!request || !isRendered(*request)) return std::nullopt;
    return renderedResult()->image;
}

bool BlurredScreenshotPreviewLayer::isRendered(const RenderRequest& request) const {
    return renderedResult() && renderedResult()->request == request;
}

void BlurredScreenshotPreviewLayer::requestChanged() {
    if (running_ != presentRequest()) cancel();
    if (std::exchange(isStartQueued_, true)) return;
    QMetaObject::invokeMethod(this, &BlurredScreenshotPreviewLayer::start, Qt::QueuedConnection);
}

void BlurredScreenshotPreviewLayer::cancel() {
    stop_.request_stop();
    running_.reset();
}

void BlurredScreenshotPreviewLayer::start() {
    isStartQueued_ = false;
    const auto request = presentRequest();
    if (!request || running_ == request || isRendered(*request)) return;
    running_ = request;
    stop_ = std::stop_source();
    launch(render(*request, image(), stop_.get_token()), this);
}

Task<> BlurredScreenshotPreviewLayer::render(RenderRequest request, Image source,
                                             std::stop_token stop) {
    auto work = [service = watermarkService_, request, source = std::move(source), stop]() mutable {
        throwIfStopped(stop);
        if (request.watermarkEnabled) {
            source = service->apply(std::move(source), request.watermarkSettings);
        }
        const QSizeF size = source.pointSize();
        return BlurEffectRenderer::shared().apply(std::move(source), request.annotations, size,
                                                  QRectF(QPointF(), size), stop);
    };
    const auto rendered = runInBackground(std::move(work));
    Image finished = co_await rendered;
    // The layer asks for a stop before it goes, so without one it is still there.
    if (stop.stop_requested()) co_return;
    running_.reset();
    set_renderedResult(RenderedResult{std::move(finished), std::move(request)});
}

}  // namespace kestrio
