#include "editor/document/EditorViewModel.h"

namespace kestrio {

void EditorViewModel::setAnnotations(std::vector<AnyAnnotation> annotations) {
    annotations_ = std::move(annotations);
    Q_EMIT annotationsChanged();
}

const std::vector<AnyAnnotation>& EditorViewModel::liveAnnotations() const {
    return isAnnotationMode() ? annotationVM_.annotations() : annotations_;
}

void EditorViewModel::synchroniseAnnotations() {
    if (isAnnotationMode()) setAnnotations(annotationVM_.annotations());
}

void EditorViewModel::toggleAnnotationMode() {
    if (isAnnotationMode()) {
        leaveAnnotationMode();
        return;
    }
    if (screenshot().isNull()) return;
    if (isCropMode()) cancelCrop();
    annotationVM_.setAnnotations(annotations_);
    set_isAnnotationMode(true);
}

void EditorViewModel::leaveAnnotationMode() {
    if (!isAnnotationMode()) return;
    annotationVM_.finishDrawing();
    annotationVM_.selectAnnotation(std::nullopt);
    synchroniseAnnotations();
    set_isAnnotationMode(false);
    recordSnapshot();
}

}  // namespace kestrio
