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

void EditorViewModel::startAnnotating(const std::vector<AnyAnnotation>& annotations,
                                      std::optional<AnnotationTool> tool,
                                      std::optional<CodableColor> color) {
    if (!isAnnotationMode()) toggleAnnotationMode();
    if (!isAnnotationMode()) return;
    if (color) annotationVM_.setColor(*color);
    for (const AnyAnnotation& annotation : annotations)
        annotationVM_.addAnnotation(annotation);
    synchroniseAnnotations();
    if (tool) {
        annotationVM_.set_currentTool(*tool);
    } else {
        leaveAnnotationMode();
    }
}

void EditorViewModel::toggleColorPicker() {
    if (colorPickerVM_.isColorPickingMode()) {
        colorPickerVM_.stopPicking();
        return;
    }
    if (screenshot().isNull()) return;
    if (isCropMode()) cancelCrop();
    annotatesAfterPicking_ = isAnnotationMode();
    leaveAnnotationMode();
    colorPickerVM_.startPicking();
}

void EditorViewModel::connectColorPicker() {
    using Picker = ColorPickerViewModel;
    connect(&colorPickerVM_, &Picker::isColorPickingModeChanged, this, [this] {
        if (colorPickerVM_.isColorPickingMode() || !annotatesAfterPicking_) return;
        annotatesAfterPicking_ = false;
        toggleAnnotationMode();
    });
    connect(&colorPickerVM_, &Picker::colorPicked, this, [this](const PickedColor& picked) {
        ToolSettings settings = annotationVM_.toolSettings();
        settings.color = {picked.red, picked.green, picked.blue, picked.alpha};
        annotationVM_.set_toolSettings(settings);
    });
    connect(&colorPickerVM_, &Picker::backdropColorPicked, this, [this](const PickedColor& picked) {
        BackdropSettings changed = backdrop();
        changed.type = BackdropType::solid;
        changed.solidColor = CodableColor{picked.red, picked.green, picked.blue, picked.alpha};
        set_backdrop(changed);
        recordSnapshot();
    });
}

}  // namespace kestrio
