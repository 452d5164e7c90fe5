#include "core/Localisation.h"
#include "editor/document/EditorViewModel.h"
#include "imaging/ExportError.h"

#include <QPointer>

namespace kestrio {

/// The document is exporting for as long as one of these lives: a copy and an export may overlap.
class OutputUnderWay {
  public:
    explicit OutputUnderWay(EditorViewModel* editor) : editor_(editor) { count(1); }
    ~OutputUnderWay() {
        if (editor_) count(-1);
    }
    Q_DISABLE_COPY_MOVE(OutputUnderWay)

  private:
    void count(int change) {
        editor_->outputsUnderWay_ += change;
        editor_->set_isExporting(editor_->outputsUnderWay_ > 0);
    }

    QPointer<EditorViewModel> editor_;
};

namespace {

/// Sets the flag of an enhancement for as long as it lives.
class Enhancing {
  public:
    Enhancing(EditorViewModel* editor, void (EditorViewModel::*set)(bool))
        : editor_(editor), set_(set) {
        (editor->*set)(true);
    }
    ~Enhancing() {
        if (editor_) (editor_->*set_)(false);
    }
    Q_DISABLE_COPY_MOVE(Enhancing)

  private:
    QPointer<EditorViewModel> editor_;
    void (EditorViewModel::*set_)(bool);
};

}  // namespace

CompositeRequest EditorViewModel::outputRequest() {
    if (screenshot().isNull()) throw ExportError::renderingFailed();
    if (isAnnotationMode()) annotationVM_.finishGesture();
    finishEditing();
    return presentPicture();
}

CompositeRequest EditorViewModel::presentPicture() const {
    CompositeRequest request;
    request.screenshot = screenshot();
    request.setStyle(style());
    request.frameScale = frameScale();
    request.canvasState = canvasState();
    if (watermarkVM_.isEnabled()) request.watermark = watermarkVM_.settings();
    if (annotationVM_.annotationsVisible()) request.annotations = liveAnnotations();
    return request;
}

CompositeRequest EditorViewModel::wholePicture() const {
    CompositeRequest whole = presentPicture();
    whole.annotations = liveAnnotations();
    return whole;
}

void EditorViewModel::markExported(const CompositeRequest& picture) {
    unexported_.settle(picture);
    Q_EMIT exported();
}

Task<Image> EditorViewModel::prepareRenderedImage() {
    const OutputUnderWay exporting(this);
    const auto renderer = services_.imageRenderer;
    auto rendering = renderer->renderComposite(outputRequest());
    co_return co_await rendering;
}

Task<SavedFile> EditorViewModel::exportImage(SaveTarget target, ExportFormat format,
                                             EncodeHooks hooks) {
    const OutputUnderWay exporting(this);
    const QPointer<EditorViewModel> self(this);
    const auto renderer = services_.imageRenderer;
    const auto exporter = services_.exporter;
    const CompositeRequest request = outputRequest();
    requireEncodable(finishedSize(request), format);
    auto rendering = renderer->renderComposite(request, hooks.stop);
    Image picture = co_await rendering;
    auto saving = exporter->saveImage(std::move(picture), std::move(target), format, hooks);
    const SavedFile saved = co_await saving;
    if (self) self->markExported(request);
    co_return saved;
}

Task<> EditorViewModel::copyToClipboard() {
    const OutputUnderWay exporting(this);
    const QPointer<EditorViewModel> self(this);
    const auto renderer = services_.imageRenderer;
    const auto exporter = services_.exporter;
    const CompositeRequest request = outputRequest();
    auto rendering = renderer->renderComposite(request);
    const Image picture = co_await rendering;
    auto copying = exporter->copyToClipboard(picture);
    co_await copying;
    if (self) self->markExported(request);
}

Task<> EditorViewModel::pinToDesktop() {
    if (screenshot().isNull() || !canPin()) co_return;
    const QPointer<EditorViewModel> self(this);
    const auto renderer = services_.imageRenderer;
    const auto pins = services_.pins;
    const CompositeRequest request = outputRequest();
    auto rendering = renderer->renderComposite(request);
    const Image picture = co_await rendering;
    pins->pin(picture);
    if (!self) co_return;
    markExported(request);
    set_toastMessage(Kestrio::tr("Screenshot pinned to desktop"));
}

Task<bool> EditorViewModel::enhanceImage(AIEnhancementMode mode, double strength) {
    if (screenshot().isNull()) throw ExportError::renderingFailed();
    if (isEnhancingImage()) co_return false;
    const Enhancing enhancing(this, &EditorViewModel::set_isEnhancingImage);
    const QPointer<EditorViewModel> self(this);
    const auto service = services_.enhancement;
    const Image before = screenshot();
    auto work = service->enhanceInBackground(before, mode, std::clamp(strength, 0.0, 1.0));
    Image enhanced = co_await work;
    if (!self || before.bitmap().cacheKey() != screenshot().bitmap().cacheKey()) co_return false;
    if (!screenshotBeforeEnhancement_) setOriginal(before);
    replaceKeepingAnnotations(std::move(enhanced));
    co_return true;
}

void EditorViewModel::restoreOriginalImage() {
    if (!screenshotBeforeEnhancement_) return;
    const Image original = *screenshotBeforeEnhancement_;
    setOriginal(std::nullopt);
    replaceKeepingAnnotations(original);
}

void EditorViewModel::setOriginal(std::optional<Image> original) {
    screenshotBeforeEnhancement_ = std::move(original);
    Q_EMIT canRestoreOriginalImageChanged();
}

// A picture of other pixels keeps its size in points, so that annotations and canvas fit it.
void EditorViewModel::replaceKeepingAnnotations(const Image& image) {
    set_screenshot(Image(image.bitmap(), screenshot().pointSize()));
    recordSnapshot();
}

}  // namespace kestrio
