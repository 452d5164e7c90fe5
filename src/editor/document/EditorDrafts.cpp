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
    document.original = enhancement_.original();
    document.style = styleModel_.style();
    document.frameScale = styleModel_.frameScale();
    document.canvas = atRest(canvasState());
    document.watermark = watermarkVM_.settings();
    document.isWatermarkEnabled = watermarkVM_.isEnabled();
    document.annotations = liveAnnotations();
    std::erase_if(document.annotations, isEmptyText);
    document.areAnnotationsVisible = annotationVM().annotationsVisible();
    return document;
}

void EditorViewModel::restoreDraft(const DraftDocument& draft) {
    set_screenshot(draft.picture);
    enhancement_.setOriginal(draft.original);
    set_canvasState(draft.canvas);
    annotationSession_.reset(draft.annotations);
    if (annotationVM().annotationsVisible() != draft.areAnnotationsVisible) {
        annotationVM().toggleVisibility();
    }
    styleModel_.setStyle(draft.style);
    styleModel_.set_frameScale(draft.frameScale);
    styleModel_.showPreset();
    watermarkVM_.set_settings(draft.watermark);
    watermarkVM_.set_isEnabled(draft.isWatermarkEnabled);
    annotationVM().historyService().clear();
    historyManager_.clear();
    recordSnapshot();
    // Nothing of it has left the editor.
    outputModel_.markExported({});
}

}  // namespace kestrio
