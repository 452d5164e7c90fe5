#include "editor/canvas/PreviewRenderer.h"

#include "core/Cancelled.h"
#include "imaging/filters/Resample.h"

#include <cmath>

namespace kestrio {

namespace {

using namespace std::chrono_literals;

// While zooming goes on, the preview so far is scaled and the machine left to that.
constexpr auto restAfterZooming = 80ms;
// A blur that moves is made again once it rests, since it would be late at every step.
constexpr auto restAfterMoving = 120ms;

}  // namespace

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
    connect(&editor.styleModel(), &StyleModel::styleChanged, this, &PreviewRenderer::requestStyle);
    connect(&editor, &EditorViewModel::canvasStateChanged, this, [this] {
        // Panning, zooming and turning show the same picture elsewhere.
        if (composedCanvas_ != editor_.canvasState().canvasSize) requestPreview();
    });
    scaleRest_.setSingleShot(true);
    scaleRest_.setInterval(restAfterZooming);
    connect(&scaleRest_, &QTimer::timeout, this, &PreviewRenderer::requestScreenshot);
    watchBlurs();
    WatermarkViewModel& mark = editor.watermarkVM();
    connect(&mark, &WatermarkViewModel::isEnabledChanged, this,
            [this, &mark] { blurred_.set_watermarkEnabled(mark.isEnabled()); });
    connect(&mark, &WatermarkViewModel::settingsChanged, this,
            [this, &mark] { blurred_.set_watermarkSettings(mark.settings()); });
    connect(&blurred_, &BlurredScreenshotPreviewLayer::renderedResultChanged, this,
            &PreviewRenderer::requestPreview);
    refreshBlurs();
}

void PreviewRenderer::watchBlurs() {
    blurRest_.setSingleShot(true);
    blurRest_.setInterval(restAfterMoving);
    connect(&blurRest_, &QTimer::timeout, this, [this] {
        movingBlur_.reset();
        refreshBlurs();
    });
    using Session = AnnotationSession;
    for (const auto signal : {&Session::annotationsChanged, &Session::isAnnotationModeChanged})
        connect(&editor_.annotationSession(), signal, this, &PreviewRenderer::refreshBlurs);
    using Annotations = AnnotationViewModel;
    for (const auto signal :
         {&Annotations::annotationsChanged, &Annotations::annotationsVisibleChanged}) {
        connect(&editor_.annotationVM(), signal, this, &PreviewRenderer::refreshBlurs);
    }
    connect(&editor_.annotationVM(), &Annotations::gestureChanged, this, [this] {
        if (editor_.annotationVM().isMovingRecord() != isRecordMoving_) refreshBlurs();
    });
}

PreviewRenderer::~PreviewRenderer() {
    stop_.request_stop();
}

void PreviewRenderer::setScale(double pixelsPerPoint) {
    if (!(pixelsPerPoint > 0) || editor_.screenshot().isNull()) return;
    const double scale = std::min(pixelsPerPoint, editor_.screenshot().pixelDensity());
    if (scale == wantedScale_) return;
    const bool isFirst = std::exchange(wantedScale_, scale) == 0;
    if (isFirst) {
        requestScreenshot();
    } else {
        scaleRest_.start();
    }
}

void PreviewRenderer::refreshBlurs() {
    const AnnotationViewModel& annotations = editor_.annotationVM();
    std::vector<BlurAnnotation> blurs;
    if (annotations.annotationsVisible()) {
        for (const AnyAnnotation& annotation : editor_.liveAnnotations())
            if (const auto* blur = annotation.as<BlurAnnotation>()) blurs.push_back(*blur);
    }
    const bool isChanged = blurs != blurs_;
    blurs_ = blurs;
    const auto& selected = annotations.selectedAnnotation();
    isRecordMoving_ = annotations.isMovingRecord();
    if (!isRecordMoving_) {
        movingBlur_.reset();
        blurRest_.stop();
    } else if (isChanged && selected && selected->as<BlurAnnotation>()) {
        movingBlur_ = selected->id();
        blurRest_.start();
    }
    std::erase_if(blurs, [this](const BlurAnnotation& blur) { return blur.id == movingBlur_; });
    blurred_.set_annotations(std::move(blurs));
}

std::optional<QRectF> PreviewRenderer::shownContent() const {
    const CompositeLayout present = editor_.layout();
    const bool isSame = shownLayout_.canvasSize == present.canvasSize &&
                        shownLayout_.imageSize == present.imageSize;
    const QRectF content = isSame ? contentRect(shownLayout_) : QRectF();
    return content.isEmpty() ? std::nullopt : std::optional(content);
}

std::vector<BlurAnnotation> PreviewRenderer::pendingBlurs() const {
    std::vector<BlurAnnotation> pending;
    for (const BlurAnnotation& blur : blurs_)
        if (std::find(shownBlurs_.begin(), shownBlurs_.end(), blur) == shownBlurs_.end())
            pending.push_back(blur);
    if (const auto drawn = editor_.annotationVM().recordBeingDrawn())
        if (const auto* blur = drawn->as<BlurAnnotation>()) pending.push_back(*blur);
    return pending;
}

QSize PreviewRenderer::shownPixels() const {
    CompositeLayout layout = editor_.layout();
    layout.outputSize = layout.canvasSize * wantedScale_;
    const QSizeF shown = contentRect(layout).size();
    return {std::max(1, static_cast<int>(std::lround(shown.width()))),
            std::max(1, static_cast<int>(std::lround(shown.height())))};
}

// What was shrunk for a smaller place would be enlarged again.
void PreviewRenderer::requestStyle() {
    const int most = editor_.screenshot().pixelSize().width();
    if (std::min(shownPixels().width(), most) > shrunkFor_.width()) requestScreenshot();
    requestPreview();
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
        const QSize pixels = shrunkFor_ = shownPixels();
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

// While blurs are made for the picture in another size the last preview stands, so that what they
// hide does not show.
std::optional<PreviewRenderer::Sketch> PreviewRenderer::previewRequest() const {
    const auto& last = blurred_.renderedResult();
    const bool isSameImage =
        last && last->request.imageIdentity == blurred_.image().bitmap().cacheKey();
    if (!isSameImage && !preview().isNull() && !blurred_.annotations().empty()) return {};
    Sketch sketch;
    CompositeRequest& request = sketch.request;
    request.screenshot = isSameImage ? last->image : blurred_.image();
    if (request.screenshot.isNull()) return {};
    if (isSameImage) sketch.blurs = last->request.annotations;
    request.setStyle(editor_.style());
    request.frameScale = editor_.styleModel().frameScale();
    request.canvasState = editor_.canvasState();
    request.canvasState.transform = {};
    request.outputScale = wantedScale_;
    return sketch;
}

Task<> PreviewRenderer::renderPreviews(std::stop_token stop) {
    isRendering_ = true;
    while (std::exchange(isRenderStale_, false)) {
        auto sketch = previewRequest();
        if (!sketch) break;
        composedCanvas_ = sketch->request.canvasState.canvasSize;
        CompositeLayout layout = compositeLayout(sketch->request, 1);
        layout.outputSize = layout.canvasSize;
        try {
            auto rendering = imageRenderer_->renderComposite(std::move(sketch->request), stop);
            const Image picture = co_await rendering;
            if (stop.stop_requested()) co_return;
            shownBlurs_ = std::move(sketch->blurs);
            shownLayout_ = layout;
            set_preview(picture.bitmap());
        } catch (const Error&) {
            // The last preview stands; output reports its own failure.
            if (stop.stop_requested()) co_return;
        }
    }
    isRendering_ = false;
}

}  // namespace kestrio
