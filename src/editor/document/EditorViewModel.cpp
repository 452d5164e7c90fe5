#include "editor/document/EditorViewModel.h"

#include "core/Clamp.h"
#include "render/ImageComposer.h"
#include "render/enhance/AutoBeautify.h"

namespace kestrio {

namespace {

constexpr std::chrono::milliseconds stylePersistenceDelay{500};
constexpr double largestCornerRadius = 48;

}  // namespace

EditorViewModel::EditorViewModel(EditorServices services, QObject* parent)
    : QObject(parent),
      services_(std::move(services)),
      annotationVM_({}, services_.memoryPressure.get()),
      toolMemory_(annotationVM_, services_.userDefaults),
      colorPickerVM_(std::make_shared<ColorHistoryService>(services_.userDefaults),
                     services_.userDefaults, services_.pasteboard),
      watermarkVM_(services_.watermark),
      historyManager_(HistoryManager<EditorSnapshot>::greatestHistorySize,
                      services_.memoryPressure.get()) {
    const auto recompute = [this] { recomputeUndoFlags(); };
    connect(&historyManager_, &HistoryFlags::canUndoChanged, this, recompute);
    connect(&historyManager_, &HistoryFlags::canRedoChanged, this, recompute);
    auto& annotationHistory = annotationVM_.historyService();
    connect(&annotationHistory, &AnnotationHistoryService::canUndoChanged, this, recompute);
    connect(&annotationHistory, &AnnotationHistoryService::canRedoChanged, this, recompute);
    connect(this, &EditorViewModel::isAnnotationModeChanged, this, recompute);
    connect(this, &EditorViewModel::isCropModeChanged, this, recompute);
    connect(this, &EditorViewModel::screenshotChanged, this,
            [this] { annotationVM_.set_pictureRect(QRectF(QPointF(), screenshot().pointSize())); });

    connectColorPicker();
    stylePersistence_.setSingleShot(true);
    stylePersistence_.setInterval(stylePersistenceDelay);
    connect(&stylePersistence_, &QTimer::timeout, this, &EditorViewModel::persistStyle);
    const auto persistLater = [this] { stylePersistence_.start(); };
    connect(this, &EditorViewModel::backdropChanged, this, persistLater);
    connect(this, &EditorViewModel::mockupChanged, this, persistLater);
    connect(this, &EditorViewModel::frameStyleChanged, this, persistLater);
}

EditorViewModel::~EditorViewModel() {
    cleanUp();
}

void EditorViewModel::loadCapture(const CapturedImage& capture) {
    set_isProcessingCapture(false);
    set_screenshot(capture.image);
    setOriginal(std::nullopt);
    capturedRect_ = capture.captureRect;
    capturedDate_ = capture.captureDate;
    if (!historyItemId_) startAfresh();
    annotationVM_.historyService().clear();
    historyManager_.clear();
    recordSnapshot();
    markExported(presentPicture());
}

void EditorViewModel::startAfresh() {
    CanvasState canvas;
    canvas.canvasSize = screenshot().pointSize();
    set_canvasState(canvas);
    setAnnotations({});
    annotationVM_.setAnnotations({});
    loadPersistedStyle();
}

void EditorViewModel::replaceScreenshot(const Image& image) {
    leaveAnnotationMode();
    annotatesAfterPicking_ = false;
    stopPicking();
    if (isCropMode()) cancelCrop();
    set_screenshot(image);
    setOriginal(std::nullopt);
    CanvasState canvas = canvasState();
    canvas.canvasSize = canvasHolding(image.pointSize(), canvas.aspectRatio);
    canvas.transform = {};
    set_canvasState(canvas);
    setAnnotations({});
    annotationVM_.setAnnotations({});
    annotationVM_.historyService().clear();
    recordSnapshot();
}

void EditorViewModel::loadPersistedStyle() {
    if (auto style = services_.stylePersistence->load()) {
        style->mockup.cornerRadius = clampedOr(style->mockup.cornerRadius, 0, largestCornerRadius);
        setStyle(*style);
        showPresetOf(*style);
        return;
    }
    const PresetTheme& first = PresetTheme::all().front();
    setStyle(first.style());
    if (!currentPresetThemeId()) set_currentPresetThemeId(first.id);
}

void EditorViewModel::showPresetOf(EditorStyleSettings style) {
    style.backdrop.keepPixels = std::nullopt;
    std::optional<QString> found;
    for (const PresetTheme& preset : PresetTheme::all())
        if (preset.style() == style) found = preset.id;
    set_currentPresetThemeId(found);
}

void EditorViewModel::setStyle(const EditorStyleSettings& style) {
    set_backdrop(style.backdrop);
    set_mockup(style.mockup);
    set_frameStyle(style.frameStyle);
}

void EditorViewModel::setLook(EditorStyleSettings style) {
    style.backdrop.keepPixels = backdrop().keepPixels;
    setStyle(style);
}

void EditorViewModel::persistStyle() {
    stylePersistence_.stop();
    if (!isCleanedUp_) services_.stylePersistence->save(style());
}

// A state that differs from the current one in nothing, not even a colour, would be a step of undo
// that does nothing.
void EditorViewModel::recordSnapshot() {
    finishEditing();
    EditorSnapshot snapshot{{liveAnnotations(), atRest(canvasState()), backdrop(), mockup(),
                             frameStyle(), frameScale()},
                            screenshot(),
                            screenshotBeforeEnhancement_};
    const auto& current = historyManager_.currentState();
    if (current && *current == snapshot &&
        areIdentical(current->state.annotations, snapshot.state.annotations)) {
        return;
    }
    historyManager_.record(std::move(snapshot));
}

void EditorViewModel::recomputeUndoFlags() {
    const auto& annotationHistory = annotationVM_.historyService();
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
        annotationVM_.undo();
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
        annotationVM_.redo();
        synchroniseAnnotations();
    } else if (const auto snapshot = historyManager_.redo()) {
        apply(*snapshot);
    }
}

void EditorViewModel::apply(const EditorSnapshot& snapshot) {
    const EditorState& state = snapshot.state;
    if (snapshot.screenshot.bitmap().cacheKey() != screenshot().bitmap().cacheKey()) {
        // Steps of undo that were made on another picture would put marks elsewhere.
        annotationVM_.historyService().clear();
        set_screenshot(snapshot.screenshot);
    }
    setOriginal(snapshot.original);
    setAnnotations(state.annotations);
    annotationVM_.setAnnotations(state.annotations);
    CanvasState canvas = state.canvasState;
    canvas.transform.offset = canvasState().transform.offset;
    canvas.transform.scale = canvasState().transform.scale;
    set_canvasState(canvas);
    setStyle({state.backdrop, state.mockup, state.frameStyle});
    set_frameScale(state.frameScale);
}

void EditorViewModel::reset() {
    if (screenshot().isNull()) return;
    if (isCropMode()) cancelCrop();
    CanvasState canvas;
    canvas.canvasSize = screenshot().pointSize();
    set_canvasState(canvas);
    setOriginal(std::nullopt);
    setStyle({});
    set_frameScale(1);
    setAnnotations({});
    annotationVM_.setAnnotations({});
    annotationVM_.historyService().clear();
    historyManager_.clear();
    recordSnapshot();
}

void EditorViewModel::cleanUp() {
    if (isCleanedUp_) return;
    if (stylePersistence_.isActive()) persistStyle();
    isCleanedUp_ = true;
    historyManager_.cleanUp();
}

void EditorViewModel::applyPresetTheme(const PresetTheme& preset) {
    setLook(preset.style());
    set_currentTheme(std::nullopt);
    set_currentPresetThemeId(preset.id);
    recordSnapshot();
}

void EditorViewModel::applyTheme(const Theme& theme) {
    setStyle(theme.style());
    set_currentTheme(theme);
    set_currentPresetThemeId(std::nullopt);
    recordSnapshot();
}

void EditorViewModel::autoBeautify() {
    if (screenshot().isNull()) return;
    setLook(autoBeautified(screenshot()));
    set_currentTheme(std::nullopt);
    set_currentPresetThemeId(std::nullopt);
    recordSnapshot();
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
    request.frameScale = frameScale();
    request.canvasState = canvasState();
    return compositeLayout(request, pixelDensity);
}

}  // namespace kestrio
