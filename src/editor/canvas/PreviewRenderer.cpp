#include "editor/canvas/PreviewRenderer.h"

#include "core/Cancelled.h"
#include "imaging/filters/Resample.h"

#include <cmath>

namespace kestrio {

PreviewRenderer::PreviewRenderer(EditorViewModel& editor,
                                 std::shared_ptr<ImageRendererServiceProtocol> imageRenderer,
                                 std::shared_ptr<WatermarkServiceProtocol> watermark,
                                 QObject* parent)
    : QObject(parent),
      editor_(editor),
      imageRenderer_(std::move(imageRenderer)),
      blurred_(std::move(watermark)) {
    connect(&editor, &EditorViewModel::screenshotChanged, this,
            &PreviewRenderer::requestScreenshot);
    const auto styleSignals = {&EditorViewModel::backdropChanged, &EditorViewModel::mockupChanged,
                               &EditorViewModel::frameStyleChanged,
                               &EditorViewModel::frameScaleChanged};
    for (const auto signal : styleSignals)
        connect(&editor, signal, this, &PreviewRenderer::requestPreview);
    connect(&editor, &EditorViewModel::canvasStateChanged, this, [this] {
        // Panning, zooming and turning show the same picture elsewhere.
        if (composedCanvas_ != editor_.canvasState().canvasSize) requestPreview();
    });
    connect(&editor, &EditorViewModel::annotationsChanged, this, &PreviewRenderer::refreshBlurs);
    connect(&editor, &EditorViewModel::isAnnotationModeChanged, this,
            &PreviewRenderer::refreshBlurs);
    AnnotationViewModel& annotations = editor.annotationVM();
    connect(&annotations, &AnnotationViewModel::annotationsChanged, this,
            &PreviewRenderer::refreshBlurs);
    connect(&annotations, &AnnotationViewModel::annotationsVisibleChanged, this,
            &PreviewRenderer::refreshBlurs);
    WatermarkViewModel& mark = editor.watermarkVM();
    connect(&mark, &WatermarkViewModel::isEnabledChanged, this,
            [this, &mark] { blurred_.set_watermarkEnabled(mark.isEnabled()); });
    connect(&mark, &WatermarkViewModel::settingsChanged, this,
            [this, &mark] { blurred_.set_watermarkSettings(mark.settings()); });
    connect(&blurred_, &BlurredScreenshotPreviewLayer::renderedResultChanged, this,
            &PreviewRenderer::requestPreview);
    refreshBlurs();
}

PreviewRenderer::~PreviewRenderer() {
    stop_.request_stop();
}

void PreviewRenderer::setScale(double pixelsPerPoint) {
    if (!(pixelsPerPoint > 0) || editor_.screenshot().isNull()) return;
    const double scale = std::min(pixelsPerPoint, editor_.screenshot().pixelDensity());
    if (scale == wantedScale_) return;
    wantedScale_ = scale;
    requestScreenshot();
}

void PreviewRenderer::refreshBlurs() {
    std::vector<BlurAnnotation> blurs;
    if (editor_.annotationVM().annotationsVisible()) {
        for (const AnyAnnotation& annotation : editor_.liveAnnotations())
            if (const auto* blur = annotation.as<BlurAnnotation>()) blurs.push_back(*blur);
    }
    blurred_.set_annotations(std::move(blurs));
}

void PreviewRenderer::requestScreenshot() {
    isShrinkStale_ = true;
    if (!isShrinking_ && wantedScale_ > 0) launch(shrinkScreenshot(stop_.get_token()), this);
}

// The screenshot is shrunk once for a scale, so that a change of style composes few pixels.
Task<> PreviewRenderer::shrinkScreenshot(std::stop_token stop) {
    isShrinking_ = true;
    while (std::exchange(isShrinkStale_, false)) {
        const Image full = editor_.screenshot();
        CompositeLayout layout = editor_.layout();
        layout.outputSize = layout.canvasSize * wantedScale_;
        const QSizeF shown = contentRect(layout).size();
        const QSize pixels(std::max(1, static_cast<int>(std::lround(shown.width()))),
                           std::max(1, static_cast<int>(std::lround(shown.height()))));
        auto work = [full, pixels] {
            if (full.isNull() || pixels.width() >= full.pixelSize().width()) return full;
            return Image(scaledTo(full.bitmap(), pixels), full.pointSize());
        };
        const auto shrunk = runInBackground(std::move(work));
        Image image = co_await shrunk;
        if (stop.stop_requested()) co_return;
        if (!isShrinkStale_) blurred_.set_image(std::move(image));
    }
    isShrinking_ = false;
    requestPreview();
}

void PreviewRenderer::requestPreview() {
    isRenderStale_ = true;
    if (!isRendering_ && wantedScale_ > 0) launch(renderPreviews(stop_.get_token()), this);
}

CompositeRequest PreviewRenderer::previewRequest() const {
    CompositeRequest request;
    const auto present = blurred_.presentResult();
    const auto& last = blurred_.renderedResult();
    const bool isSameImage =
        last && last->request.imageIdentity == blurred_.image().bitmap().cacheKey();
    // While the next one is made the last one stands, so that nothing flickers.
    request.screenshot = present ? *present : isSameImage ? last->image : blurred_.image();
    request.setStyle(editor_.style());
    request.frameScale = editor_.frameScale();
    request.canvasState = editor_.canvasState();
    request.canvasState.transform = {};
    request.outputScale = wantedScale_;
    return request;
}

Task<> PreviewRenderer::renderPreviews(std::stop_token stop) {
    isRendering_ = true;
    while (std::exchange(isRenderStale_, false)) {
        CompositeRequest request = previewRequest();
        composedCanvas_ = request.canvasState.canvasSize;
        if (request.screenshot.isNull()) break;
        try {
            auto rendering = imageRenderer_->renderComposite(std::move(request), stop);
            const Image picture = co_await rendering;
            if (stop.stop_requested()) co_return;
            set_preview(picture.bitmap());
        } catch (const Error&) {
            // The last preview stands; output tells its own failure.
            if (stop.stop_requested()) co_return;
        }
    }
    isRendering_ = false;
}

}  // namespace kestrio
