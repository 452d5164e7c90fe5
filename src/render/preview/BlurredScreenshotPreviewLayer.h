#pragma once

#include "annotation/model/BlurAnnotation.h"
#include "core/Published.h"
#include "core/Task.h"
#include "imaging/Image.h"
#include "render/watermark/WatermarkService.h"

#include <QObject>
#include <QRectF>

namespace kestrio {

/// All that a blurred preview depends on.
struct RenderRequest {
    qint64 imageIdentity = 0;  ///< the bitmap's cacheKey()
    std::vector<BlurAnnotation> annotations = {};
    bool watermarkEnabled = false;
    WatermarkSettings watermarkSettings = {};

    bool operator==(const RenderRequest&) const = default;
};

/// A finished picture and what was asked for.
struct RenderedResult {
    Image image;
    RenderRequest request;
};

/// The screenshot with watermark and blur for the canvas, made in the background. A change of what
/// is shown stops the work on what was shown before; changes within one turn of the event loop
/// start one piece of work. Main thread.
class BlurredScreenshotPreviewLayer : public QObject {
    Q_OBJECT
    PUBLISHED_WRITABLE(Image, image, {})
    /// In points of the image.
    PUBLISHED_WRITABLE(std::vector<BlurAnnotation>, annotations, {})
    /// Where the image stands in the view, in the view's points.
    PUBLISHED_WRITABLE(QRectF, renderedImageRect, {})
    PUBLISHED_WRITABLE(bool, watermarkEnabled, false)
    PUBLISHED_WRITABLE(WatermarkSettings, watermarkSettings, {})
    /// The last one finished, which may be of an earlier request.
    PUBLISHED(std::optional<RenderedResult>, renderedResult, std::nullopt)

  public:
    explicit BlurredScreenshotPreviewLayer(
        std::shared_ptr<WatermarkServiceProtocol> watermarkService, QObject* parent = nullptr);
    ~BlurredScreenshotPreviewLayer() override;

    /// Nothing while there is no image.
    std::optional<RenderRequest> presentRequest() const;

    /// The rendered image while it is what the present request asks for. Otherwise the view shows
    /// the plain image and placeholders over it.
    std::optional<Image> presentResult() const;

  private:
    void requestChanged();
    void start();
    void cancel();
    bool isRendered(const RenderRequest& request) const;
    Task<> render(RenderRequest request, Image source, std::stop_token stop);

    std::shared_ptr<WatermarkServiceProtocol> watermarkService_;
    std::optional<RenderRequest> running_;
    std::stop_source stop_;
    bool isStartQueued_ = false;
};

}  // namespace kestrio
