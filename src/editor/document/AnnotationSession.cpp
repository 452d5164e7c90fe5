#include "editor/document/AnnotationSession.h"

namespace kestrio {

AnnotationSession::AnnotationSession(const EditorServices& services)
    : annotationVM_({}, services.memoryPressure.get()),
      toolMemory_(annotationVM_, services.userDefaults),
      colorPickerVM_(std::make_shared<ColorHistoryService>(services.userDefaults),
                     services.userDefaults, services.pasteboard) {
    connectColorPicker();
}

void AnnotationSession::reset(const std::vector<AnyAnnotation>& annotations) {
    setAnnotations(annotations);
    annotationVM_.setAnnotations(annotations);
}

void AnnotationSession::translate(const QPointF& offset) {
    annotationVM_.setAnnotations(annotations_);
    annotationVM_.translateAll(offset);
    setAnnotations(annotationVM_.annotations());
}

void AnnotationSession::setAnnotations(std::vector<AnyAnnotation> annotations) {
    annotations_ = std::move(annotations);
    Q_EMIT annotationsChanged();
}

const std::vector<AnyAnnotation>& AnnotationSession::liveAnnotations() const {
    return isAnnotationMode() ? annotationVM_.annotations() : annotations_;
}

void AnnotationSession::synchroniseAnnotations() {
    if (isAnnotationMode()) setAnnotations(annotationVM_.annotations());
}

void AnnotationSession::finishEditing() {
    annotationVM_.finishEditing();
    synchroniseAnnotations();
}

bool AnnotationSession::hidesRedactions() const {
    const auto isBlur = [](const AnyAnnotation& each) {
        return each.as<BlurAnnotation>() != nullptr;
    };
    return !annotationVM_.annotationsVisible() && std::ranges::any_of(liveAnnotations(), isBlur);
}

void AnnotationSession::enter() {
    annotationVM_.setAnnotations(annotations_);
    set_isAnnotationPanelPresentationDeferred(colorPickerVM_.isColorPickingMode());
    set_isAnnotationMode(true);
}

void AnnotationSession::leave() {
    if (!isAnnotationMode()) return;
    annotationVM_.finishEditing();
    annotationVM_.finishGesture();
    annotationVM_.set_isMultiSelectMode(false);
    annotationVM_.selectAnnotation(std::nullopt);
    synchroniseAnnotations();
    set_isAnnotationMode(false);
    set_isAnnotationPanelPresentationDeferred(false);
    Q_EMIT left();
}

void AnnotationSession::startPicking(UseColor use) {
    annotatesAfterPicking_ = isAnnotationMode();
    const std::set<QUuid>& selected = annotationVM_.selectedAnnotations();
    selectionBeforePicking_.assign(selected.begin(), selected.end());
    leave();
    usePicked_ = std::move(use);
    colorPickerVM_.startPicking();
}

void AnnotationSession::stopPicking() {
    usePicked_ = {};
    colorPickerVM_.stopPicking();
}

void AnnotationSession::abandonPicking() {
    annotatesAfterPicking_ = false;
    stopPicking();
}

void AnnotationSession::resumeAfterPicking() {
    set_isAnnotationPanelPresentationDeferred(false);
    if (!std::exchange(annotatesAfterPicking_, false) || isAnnotationMode()) return;
    enter();
    for (const QUuid& id : selectionBeforePicking_)
        if (const AnyAnnotation* record = annotationVM_.annotation(id))
            annotationVM_.addToSelection(*record);
}

// Picking has ended before the colour comes, so annotation mode is on again where it was before.
void AnnotationSession::usePickedColor(const PickedColor& picked) {
    if (const UseColor use = std::exchange(usePicked_, {})) {
        use(picked);
    } else if (isAnnotationMode()) {
        ToolSettings settings = annotationVM_.toolSettings();
        settings.color = {picked.red, picked.green, picked.blue, picked.alpha};
        annotationVM_.set_toolSettings(settings);
    }
}

void AnnotationSession::connectColorPicker() {
    using Picker = ColorPickerViewModel;
    connect(&colorPickerVM_, &Picker::isColorPickingModeChanged, this, [this] {
        if (!colorPickerVM_.isColorPickingMode()) resumeAfterPicking();
    });
    connect(&colorPickerVM_, &Picker::colorPicked, this, &AnnotationSession::usePickedColor);
}

}  // namespace kestrio
