#pragma once

#include "core/SerialQueue.h"
#include "render/CompositeRequest.h"
#include "render/backdrop/BackdropRenderer.h"
#include "render/watermark/WatermarkService.h"

#include <memory>
#include <stop_token>

namespace kestrio {

/// Composes finished pictures. From back to front: backdrop fill, pattern, underlay, effects on all
/// of these, shadow, frame, screenshot with its watermark, overlay, annotations; last the whole is
/// rotated.
/// Holds no state between pictures and may be used from any thread but its own filter queue.
class ImageComposer {
  public:
    explicit ImageComposer(std::shared_ptr<WatermarkServiceProtocol> watermarkService);

    /// The finished picture, one pixel a point, its bitmap in Format_RGB32 where it is opaque
    /// throughout. The request's screenshot is let go as soon as it is drawn. Throws
    /// ExportError::renderingFailed for a request without a screenshot or with an impossible size,
    /// and Cancelled between two stages.
    Image compose(CompositeRequest request, std::stop_token stop = {});

    /// The backdrop alone, without its effects. Pixels, and pixels a point.
    Image renderBackdrop(const BackdropSettings& backdrop, QSize pixels, double scale);

    /// A copy with the effects applied; the very same picture where they are neutral.
    Image applyEffects(const Image& image, const BackdropEffects& effects, double scale);

  private:
    std::shared_ptr<WatermarkServiceProtocol> watermarkService_;
    SerialQueue renderQueue_;
    BackdropRenderer backdropRenderer_{renderQueue_};
};

/// The picture turned clockwise by `degrees` about its centre, on a canvas that holds all of it;
/// the picture itself for no turn.
QImage turned(const QImage& picture, double degrees);

/// The size in pixels of the finished picture.
QSize finishedSize(const CompositeRequest& request);

/// The size in pixels of turned() for a picture of this size.
QSize turnedSize(QSize size, double degrees);

}  // namespace kestrio
