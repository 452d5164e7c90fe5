#pragma once

#include "core/Task.h"
#include "render/CompositeRequest.h"
#include "render/ImageComposer.h"
#include "render/watermark/WatermarkService.h"

#include <memory>

namespace kestrio {

/// Turns a screenshot and its style into the finished picture. Flows run on the main thread and
/// leave all work to the background; each takes its values by copy.
class ImageRendererServiceProtocol {
  public:
    virtual ~ImageRendererServiceProtocol() = default;

    /// The finished picture, one pixel a point. Throws ExportError::renderingFailed for a request
    /// without a screenshot or with an impossible size, and Cancelled.
    virtual Task<Image> renderComposite(CompositeRequest request, std::stop_token stop = {}) = 0;
};

/// The renderer on the real composer.
class ImageRendererService : public ImageRendererServiceProtocol {
  public:
    explicit ImageRendererService(std::shared_ptr<WatermarkServiceProtocol> watermarkService);

    Task<Image> renderComposite(CompositeRequest request, std::stop_token stop = {}) override;

  private:
    std::shared_ptr<ImageComposer> composer_;
};

}  // namespace kestrio
