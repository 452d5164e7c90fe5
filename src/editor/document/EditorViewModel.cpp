#include "editor/document/EditorViewModel.h"

#include "core/Localisation.h"
#include "imaging/ExportError.h"
#include "render/ImageComposer.h"
#include "render/enhance/AutoBeautify.h"

namespace kestrio {

EditorViewModel::EditorViewModel(EditorServices services, QObject* parent)
    : QObject(parent),
      styleModel_(services.stylePersistence),
      annotationSession_(services),
      enhancement_(*this, services.enhancement),
      autoRedaction_(*this, services),
      outputModel_(*this, services),
      ocrVM_({services.ocr, services.translation, services.settings, services.pasteboard}),
      watermarkVM_(services.watermark),
      historyManager_(HistoryManager<EditorSnapshot>::greatestHistorySize,
                      services.memoryPressure.get()) {
    connectUndo();
    connectText();
    connect(this, &EditorViewModel::screenshotChanged, this, [this] {
        annotationVM().set_pictureRect(QRectF(QPointF(), screenshot().pointSize()));
    });
    connect(&annotationSession_, &AnnotationSession::left, this, &EditorViewModel::recordSnapshot);
    connect(&colorPickerVM(), &ColorPickerViewModel::backdropColorPicked, this,
            &EditorViewModel::useForBackdrop);
}

void EditorViewModel::connectUndo() {
    const auto recompute = [this] { recomputeUndoFlags(); };
    connect(&historyManager_, &HistoryFlags::canUndoChanged, this, recompute);
    connect(&historyManager_, &HistoryFlags::canRedoChanged, this, recompute);
    auto& annotationHistory = annotationVM().historyService();
    connect(&annotationHistory, &AnnotationHistoryService::canUndoChanged, this, recompute);
    connect(&annotationHistory, &AnnotationHistoryService::canRedoChanged, this, recompute);
    connect(&annotationSession_, &AnnotationSession::isAnnotationModeChanged, this, recompute);
    connect(&cropSession_, &CropSession::isCropModeChanged, this, recompute);
}

void EditorViewModel::connectText() {
    // What was read belongs to the picture in which it was read.
    connect(this, &EditorViewModel::screenshotChanged, &ocrVM_, &OCRViewModel::clear);
    const auto endChoosing = [this] { ocrVM_.set_isRegionSelectionMode(false); };
    connect(&annotationSession_, &AnnotationSession::isAnnotationModeChanged, this, endChoosing);
    connect(&cropSession_, &CropSession::isCropModeChanged, this, endChoosing);
    connect(&colorPickerVM(), &ColorPickerViewModel::isColorPickingModeChanged, this, endChoosing);
    connect(&ocrVM_, &OCRViewModel::errorMessageChanged, this, [this] {
        if (!ocrVM_.errorMessage().isEmpty()) set_errorMessage(ocrVM_.errorMessage());
    });
    connect(&ocrVM_, &OCRViewModel::successMessageChanged, this, [this] {
        if (!ocrVM_.successMessage().isEmpty()) set_toastMessage(ocrVM_.successMessage());
    });
}

EditorViewModel::~EditorViewModel() {
    cleanUp();
}

void EditorViewModel::loadCapture(const CapturedImage& capture) {
    set_isProcessingCapture(false);
    set_screenshot(capture.image);
    enhancement_.setOriginal(std::nullopt);
    capturedRect_ = capture.captureRect;
    capturedDate_ = capture.captureDate;
    if (!historyItemId_) startAfresh();
    annotationVM().historyService().clear();
    historyManager_.clear();
    recordSnapshot();
    outputModel_.markExported(presentPicture());
}

void EditorViewModel::startAfresh() {
    CanvasState canvas;
    canvas.canvasSize = screenshot().pointSize();
    set_canvasState(canvas);
    annotationSession_.reset({});
    styleModel_.loadPersisted();
}

void EditorViewModel::replaceScreenshot(const Image& image) {
    leaveAnnotationMode();
    annotationSession_.abandonPicking();
    if (isCropMode()) cancelCrop();
    set_screenshot(image);
    enhancement_.setOriginal(std::nullopt);
    CanvasState canvas = canvasState();
    canvas.canvasSize = canvasHolding(image.pointSize(), canvas.aspectRatio);
    canvas.transform = {};
    set_canvasState(canvas);
    annotationSession_.reset({});
    annotationVM().historyService().clear();
    recordSnapshot();
}

// A state that differs from the current one in nothing, not even a colour, would be a step of undo
// that does nothing.
void EditorViewModel::recordSnapshot() {
    finishEditing();
    EditorSnapshot snapshot{
        {liveAnnotations(), atRest(canvasState()), styleModel_.backdrop(), styleModel_.mockup(),
         styleModel_.frameStyle(), styleModel_.frameScale()},
        screenshot(),
        enhancement_.original()};
    const auto& current = historyManager_.currentState();
    if (current && *current == snapshot &&
        areIdentical(current->state.annotations, snapshot.state.annotations)) {
        return;
    }
    historyManager_.record(std::move(snapshot));
}

void EditorViewModel::recomputeUndoFlags() {
    const auto& annotationHistory = annotationVM().historyService();
    if (isCropMode()) {
        set_canUndo(true);
        set_canRedo(false);
        return;
    }
    set_canUndo(isAnnotationMode() ? annotationHistory.canUndo() : historyManager_.canUndo());
    set_canRedo(isAnnotationMode() ? annotationHistory.canRedo() : historyManager_.canRedo());
}

void EditorViewModel::undo() {
    finishEditing();
    if (isCropMode()) {
        cancelCrop();
    } else if (!canUndo()) {
        return;
    } else if (isAnnotationMode()) {
        annotationVM().undo();
        synchroniseAnnotations();
    } else if (const auto snapshot = historyManager_.undo()) {
        apply(*snapshot);
    }
}

void EditorViewModel::redo() {
    finishEditing();
    if (isCropMode()) {
        cancelCrop();
    } else if (!canRedo()) {
        return;
    } else if (isAnnotationMode()) {
        annotationVM().redo();
        synchroniseAnnotations();
    } else if (const auto snapshot = historyManager_.redo()) {
        apply(*snapshot);
    }
}

void EditorViewModel::apply(const EditorSnapshot& snapshot) {
    const EditorState& state = snapshot.state;
    if (snapshot.screenshot.bitmap().cacheKey() != screenshot().bitmap().cacheKey()) {
        // Steps of undo that were made on another picture would put marks elsewhere.
        annotationVM().historyService().clear();
        set_screenshot(snapshot.screenshot);
    }
    enhancement_.setOriginal(snapshot.original);
    annotationSession_.reset(state.annotations);
    CanvasState canvas = state.canvasState;
    canvas.transform.offset = canvasState().transform.offset;
    canvas.transform.scale = canvasState().transform.scale;
    set_canvasState(canvas);
    styleModel_.setStyle({state.backdrop, state.mockup, state.frameStyle});
    styleModel_.set_frameScale(state.frameScale);
}

void EditorViewModel::reset() {
    if (screenshot().isNull()) return;
    if (isCropMode()) cancelCrop();
    CanvasState canvas;
    canvas.canvasSize = screenshot().pointSize();
    set_canvasState(canvas);
    enhancement_.setOriginal(std::nullopt);
    styleModel_.setStyle({});
    styleModel_.set_frameScale(1);
    annotationSession_.reset({});
    annotationVM().historyService().clear();
    historyManager_.clear();
    recordSnapshot();
}

void EditorViewModel::cleanUp() {
    if (isCleanedUp_) return;
    styleModel_.cleanUp();
    isCleanedUp_ = true;
    historyManager_.cleanUp();
}

void EditorViewModel::applyPresetTheme(const PresetTheme& preset) {
    styleModel_.applyPresetTheme(preset);
    recordSnapshot();
}

void EditorViewModel::applyTheme(const Theme& theme) {
    styleModel_.applyTheme(theme);
    recordSnapshot();
}

void EditorViewModel::autoBeautify() {
    if (screenshot().isNull()) return;
    styleModel_.applyLook(autoBeautified(screenshot()));
    recordSnapshot();
}

void EditorViewModel::useForBackdrop(const PickedColor& picked) {
    BackdropSettings changed = styleModel_.backdrop();
    changed.type = BackdropType::solid;
    changed.solidColor = CodableColor{picked.red, picked.green, picked.blue, picked.alpha};
    styleModel_.set_backdrop(changed);
    recordSnapshot();
}

void EditorViewModel::replacePixels(const Image& image) {
    set_screenshot(Image(image.bitmap(), screenshot().pointSize()));
    recordSnapshot();
}

Task<> EditorViewModel::performOCR() {
    if (screenshot().isNull()) {
        set_errorMessage(Kestrio::tr("No screenshot loaded"));
        co_return;
    }
    auto scanning = ocrVM_.scan(screenshot());
    co_await scanning;
}

void EditorViewModel::toggleAnnotationMode() {
    isAnnotationMode() ? leaveAnnotationMode() : enterAnnotationMode();
}

void EditorViewModel::enterAnnotationMode() {
    if (screenshot().isNull()) return;
    if (isCropMode()) cancelCrop();
    annotationSession_.enter();
}

void EditorViewModel::startAnnotating(const std::vector<AnyAnnotation>& annotations,
                                      std::optional<AnnotationTool> tool,
                                      std::optional<CodableColor> color) {
    if (!isAnnotationMode()) enterAnnotationMode();
    if (!isAnnotationMode()) return;
    for (const AnyAnnotation& annotation : annotations)
        annotationVM().addAnnotation(annotation);
    synchroniseAnnotations();
    if (tool) {
        // After the tool, which brings its own colour.
        annotationVM().set_currentTool(*tool);
        if (color) annotationVM().setColor(*color);
    } else {
        leaveAnnotationMode();
    }
}

void EditorViewModel::addMarks(const std::vector<AnyAnnotation>& marks) {
    finishEditing();
    if (!annotationVM().annotationsVisible()) annotationVM().toggleVisibility();
    if (isAnnotationMode()) {
        annotationVM().addAnnotations(marks);
        synchroniseAnnotations();
    } else {
        std::vector<AnyAnnotation> all = annotations();
        all.insert(all.end(), marks.begin(), marks.end());
        annotationSession_.reset(all);
    }
    recordSnapshot();
}

void EditorViewModel::toggleColorPicker(AnnotationSession::UseColor use) {
    if (colorPickerVM().isColorPickingMode()) {
        annotationSession_.stopPicking();
        return;
    }
    if (screenshot().isNull()) return;
    if (isCropMode()) cancelCrop();
    annotationSession_.startPicking(std::move(use));
}

CompositeRequest EditorViewModel::outputRequest() {
    if (screenshot().isNull()) throw ExportError::renderingFailed();
    if (isAnnotationMode()) annotationVM().finishGesture();
    finishEditing();
    return presentPicture();
}

CompositeRequest EditorViewModel::presentPicture() const {
    CompositeRequest request;
    request.screenshot = screenshot();
    request.setStyle(style());
    request.frameScale = styleModel_.frameScale();
    request.canvasState = canvasState();
    if (watermarkVM_.isEnabled()) request.watermark = watermarkVM_.settings();
    if (annotationVM().annotationsVisible()) request.annotations = liveAnnotations();
    return request;
}

CompositeRequest EditorViewModel::wholePicture() const {
    CompositeRequest whole = presentPicture();
    whole.annotations = liveAnnotations();
    return whole;
}

void EditorViewModel::setAspectRatio(const AspectRatio& aspectRatio) {
    CanvasState canvas = canvasState();
    canvas.aspectRatio = aspectRatio;
    canvas.canvasSize = canvasHolding(screenshot().pointSize(), aspectRatio);
    set_canvasState(canvas);
    recordSnapshot();
}

QSize EditorViewModel::outputPixels() const {
    const CompositeLayout layout = layoutAt(screenshot().pixelDensity());
    return layout.isValid() ? turnedSize(layout.outputPixels(), canvasState().transform.rotation)
                            : QSize(0, 0);
}

CompositeLayout EditorViewModel::layoutAt(double pixelDensity) const {
    CompositeRequest request;
    request.screenshot = screenshot();
    request.setStyle(style());
    request.frameScale = styleModel_.frameScale();
    request.canvasState = canvasState();
    return compositeLayout(request, pixelDensity);
}

}  // namespace kestrio
