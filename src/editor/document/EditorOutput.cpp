#include "core/Localisation.h"
#include "editor/document/EditorViewModel.h"
#include "imaging/ExportError.h"

#include <QPointer>

namespace kestrio {

namespace {

/// Sets a flag for as long as it lives.
class Flagged {
  public:
    Flagged(EditorViewModel* editor, void (EditorViewModel::*set)(bool))
        : editor_(editor), set_(set) {
        (editor->*set)(true);
    }
    ~Flagged() {
        if (editor_) (editor_->*set_)(false);
    }
    Q_DISABLE_COPY_MOVE(Flagged)

  private:
    QPointer<EditorViewModel> editor_;
    void (EditorViewModel::*set_)(bool);
};

}  // namespace

CompositeRequest EditorViewModel::outputRequest() {
    if (screenshot().isNull()) throw ExportError::renderingFailed();
    if (isAnnotationMode()) annotationVM_.finishDrawing();
    synchroniseAnnotations();
    CompositeRequest request;
    request.screenshot = screenshot();
    request.setStyle(style());
    request.frameScale = frameScale();
    request.canvasState = canvasState();
    if (watermarkVM_.isEnabled()) request.watermark = watermarkVM_.settings();
    if (annotationVM_.annotationsVisible()) request.annotations = annotations_;
    return request;
}

Task<Image> EditorViewModel::prepareRenderedImage() {
    const Flagged exporting(this, &EditorViewModel::set_isExporting);
    const auto renderer = services_.imageRenderer;
    auto rendering = renderer->renderComposite(outputRequest());
    co_return co_await rendering;
}

Task<SavedFile> EditorViewModel::exportImage(QString path, ExportFormat format, EncodeHooks hooks) {
    const Flagged exporting(this, &EditorViewModel::set_isExporting);
    const auto renderer = services_.imageRenderer;
    auto rendering = renderer->renderComposite(outputRequest(), hooks.stop);
    Image picture = co_await rendering;
    auto saving = renderer->saveImage(std::move(picture), path, format, hooks);
    co_return co_await saving;
}

Task<> EditorViewModel::copyToClipboard() {
    const Flagged exporting(this, &EditorViewModel::set_isExporting);
    const auto renderer = services_.imageRenderer;
    auto rendering = renderer->renderComposite(outputRequest());
    const Image picture = co_await rendering;
    auto copying = renderer->copyToClipboard(picture);
    co_await copying;
}

Task<> EditorViewModel::pinToDesktop() {
    if (screenshot().isNull() || !canPin()) co_return;
    const QPointer<EditorViewModel> self(this);
    const auto renderer = services_.imageRenderer;
    const auto pins = services_.pins;
    auto rendering = renderer->renderComposite(outputRequest());
    const Image picture = co_await rendering;
    pins->pin(picture);
    if (self) set_toastMessage(localised("Screenshot pinned to desktop"));
}

Task<> EditorViewModel::enhanceImage(AIEnhancementMode mode, double strength) {
    if (screenshot().isNull()) throw ExportError::renderingFailed();
    if (isEnhancingImage()) co_return;
    const Flagged enhancing(this, &EditorViewModel::set_isEnhancingImage);
    const QPointer<EditorViewModel> self(this);
    const auto service = services_.enhancement;
    const Image before = screenshot();
    auto work = service->enhanceInBackground(before, mode, std::clamp(strength, 0.0, 1.0));
    Image enhanced = co_await work;
    if (!self) co_return;
    if (!screenshotBeforeEnhancement_) screenshotBeforeEnhancement_ = before;
    replaceKeepingAnnotations(std::move(enhanced));
}

void EditorViewModel::restoreOriginalImage() {
    if (!screenshotBeforeEnhancement_) return;
    replaceKeepingAnnotations(*std::exchange(screenshotBeforeEnhancement_, std::nullopt));
}

// A picture of other pixels keeps its size in points, so that annotations and canvas fit it.
void EditorViewModel::replaceKeepingAnnotations(const Image& image) {
    set_screenshot(Image(image.bitmap(), screenshot().pointSize()));
    recordSnapshot();
}

}  // namespace kestrio
