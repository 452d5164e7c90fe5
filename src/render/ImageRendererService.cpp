#include "render/ImageRendererService.h"

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

}  // namespace kestrio
