#include "render/ImageRendererService.h"

#include "render/backdrop/OverlayPainter.h"

namespace kestrio {

ImageRendererService::ImageRendererService(
    std::shared_ptr<WatermarkServiceProtocol> watermarkService)
    : composer_(std::make_shared<ImageComposer>(std::move(watermarkService))) {}

Task<Image> ImageRendererService::renderComposite(CompositeRequest request, std::stop_token stop) {
    // The composer is shared with the work, which may outlive this service.
    auto work = [composer = composer_, request = std::move(request), stop]() mutable {
        return composer->compose(std::move(request), stop);
    };
    const auto picture = runInBackground(std::move(work));
    co_return co_await picture;
}

Image ImageRendererService::renderBackdrop(const BackdropSettings& backdrop, QSize pixels,
                                           double scale) {
    return composer_->renderBackdrop(backdrop, pixels, scale);
}

Image ImageRendererService::applyEffects(const Image& image, const BackdropEffects& effects,
                                         double scale) {
    return composer_->applyEffects(image, effects, scale);
}

Image ImageRendererService::renderOverlayImage(OverlayType type, QSize pixels, double opacity) {
    return Image(kestrio::renderOverlayImage(type, pixels, opacity));
}

}  // namespace kestrio
