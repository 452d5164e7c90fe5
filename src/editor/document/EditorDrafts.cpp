#include "editor/document/EditorViewModel.h"

namespace kestrio {

namespace {

/// A text that was just made and has no words yet goes when its typing ends.
bool isEmptyText(const AnyAnnotation& annotation) {
    const auto* text = annotation.as<TextAnnotation>();
    return text && text->text.trimmed().isEmpty();
}

}  // namespace

DraftDocument EditorViewModel::draft(const QString& name) const {
    DraftDocument document;
    document.name = name;
    document.picture = screenshot();
    document.original = screenshotBeforeEnhancement_;
    document.style = style();
    document.frameScale = frameScale();
    document.canvas = atRest(canvasState());
    document.watermark = watermarkVM_.settings();
    document.isWatermarkEnabled = watermarkVM_.isEnabled();
    document.annotations = liveAnnotations();
    std::erase_if(document.annotations, isEmptyText);
    document.areAnnotationsVisible = annotationVM_.annotationsVisible();
    return document;
}

void EditorViewModel::restoreDraft(const DraftDocument& draft) {
    set_screenshot(draft.picture);
    setOriginal(draft.original);
    set_canvasState(draft.canvas);
    setAnnotations(draft.annotations);
    annotationVM_.setAnnotations(draft.annotations);
    if (annotationVM_.annotationsVisible() != draft.areAnnotationsVisible) {
        annotationVM_.toggleVisibility();
    }
    setStyle(draft.style);
    set_frameScale(draft.frameScale);
    showPresetOf(draft.style);
    watermarkVM_.set_settings(draft.watermark);
    watermarkVM_.set_isEnabled(draft.isWatermarkEnabled);
    annotationVM_.historyService().clear();
    historyManager_.clear();
    recordSnapshot();
    // Nothing of it has left the editor.
    markExported({});
}

}  // namespace kestrio
