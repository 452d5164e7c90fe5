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

void EditorViewModel::finishEditing() {
    annotationVM_.finishEditing();
    synchroniseAnnotations();
}

bool EditorViewModel::hidesRedactions() const {
    const auto isBlur = [](const AnyAnnotation& each) {
        return each.as<BlurAnnotation>() != nullptr;
    };
    return !annotationVM_.annotationsVisible() && std::ranges::any_of(liveAnnotations(), isBlur);
}

void EditorViewModel::toggleAnnotationMode() {
    isAnnotationMode() ? leaveAnnotationMode() : enterAnnotationMode();
}

void EditorViewModel::enterAnnotationMode() {
    if (screenshot().isNull()) return;
    if (isCropMode()) cancelCrop();
    annotationVM_.setAnnotations(annotations_);
    set_isAnnotationPanelPresentationDeferred(colorPickerVM_.isColorPickingMode());
    set_isAnnotationMode(true);
}

void EditorViewModel::leaveAnnotationMode() {
    if (!isAnnotationMode()) return;
    annotationVM_.finishEditing();
    annotationVM_.finishGesture();
    annotationVM_.set_isMultiSelectMode(false);
    annotationVM_.selectAnnotation(std::nullopt);
    synchroniseAnnotations();
    set_isAnnotationMode(false);
    set_isAnnotationPanelPresentationDeferred(false);
    recordSnapshot();
}

void EditorViewModel::startAnnotating(const std::vector<AnyAnnotation>& annotations,
                                      std::optional<AnnotationTool> tool,
                                      std::optional<CodableColor> color) {
    if (!isAnnotationMode()) enterAnnotationMode();
    if (!isAnnotationMode()) return;
    for (const AnyAnnotation& annotation : annotations)
        annotationVM_.addAnnotation(annotation);
    synchroniseAnnotations();
    if (tool) {
        // After the tool, which brings its own colour.
        annotationVM_.set_currentTool(*tool);
        if (color) annotationVM_.setColor(*color);
    } else {
        leaveAnnotationMode();
    }
}

void EditorViewModel::toggleColorPicker(UseColor use) {
    if (colorPickerVM_.isColorPickingMode()) {
        stopPicking();
        return;
    }
    if (screenshot().isNull()) return;
    if (isCropMode()) cancelCrop();
    annotatesAfterPicking_ = isAnnotationMode();
    const std::set<QUuid>& selected = annotationVM_.selectedAnnotations();
    selectionBeforePicking_.assign(selected.begin(), selected.end());
    leaveAnnotationMode();
    usePicked_ = std::move(use);
    colorPickerVM_.startPicking();
}

void EditorViewModel::stopPicking() {
    usePicked_ = {};
    colorPickerVM_.stopPicking();
}

void EditorViewModel::resumeAfterPicking() {
    set_isAnnotationPanelPresentationDeferred(false);
    if (!std::exchange(annotatesAfterPicking_, false) || isAnnotationMode()) return;
    enterAnnotationMode();
    for (const QUuid& id : selectionBeforePicking_)
        if (const AnyAnnotation* record = annotationVM_.annotation(id))
            annotationVM_.addToSelection(*record);
}

// Picking has ended before the colour comes, so annotation mode is on again where it was before.
void EditorViewModel::usePickedColor(const PickedColor& picked) {
    if (const UseColor use = std::exchange(usePicked_, {})) {
        use(picked);
    } else if (isAnnotationMode()) {
        ToolSettings settings = annotationVM_.toolSettings();
        settings.color = {picked.red, picked.green, picked.blue, picked.alpha};
        annotationVM_.set_toolSettings(settings);
    }
}

void EditorViewModel::connectColorPicker() {
    using Picker = ColorPickerViewModel;
    connect(&colorPickerVM_, &Picker::isColorPickingModeChanged, this, [this] {
        if (!colorPickerVM_.isColorPickingMode()) resumeAfterPicking();
    });
    connect(&colorPickerVM_, &Picker::colorPicked, this, &EditorViewModel::usePickedColor);
    connect(&colorPickerVM_, &Picker::backdropColorPicked, this, [this](const PickedColor& picked) {
        BackdropSettings changed = backdrop();
        changed.type = BackdropType::solid;
        changed.solidColor = CodableColor{picked.red, picked.green, picked.blue, picked.alpha};
        set_backdrop(changed);
        recordSnapshot();
    });
}

}  // namespace kestrio
