#include "editor/document/EditorViewModel.h"

#include "core/Clamp.h"
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

void EditorViewModel::loadCapture(const Image& image) {
    set_screenshot(image);
    screenshotBeforeEnhancement_.reset();
    CanvasState canvas;
    canvas.canvasSize = image.pointSize();
    set_canvasState(canvas);
    setAnnotations({});
    annotationVM_.setAnnotations({});
    historyManager_.clear();
    loadPersistedStyle();
    recordSnapshot();
}

void EditorViewModel::replaceScreenshot(const Image& image) {
    leaveAnnotationMode();
    if (isCropMode()) cancelCrop();
    set_screenshot(image);
    CanvasState canvas = canvasState();
    canvas.canvasSize = canvasHolding(image.pointSize(), canvas.aspectRatio);
    canvas.transform = {};
    set_canvasState(canvas);
    setAnnotations({});
    annotationVM_.setAnnotations({});
    recordSnapshot();
}

void EditorViewModel::loadPersistedStyle() {
    if (auto style = services_.stylePersistence->load()) {
        style->mockup.cornerRadius = clampedOr(style->mockup.cornerRadius, 0, largestCornerRadius);
        setStyle(*style);
        style->backdrop.keepPixels = std::nullopt;
        for (const PresetTheme& preset : PresetTheme::all())
            if (preset.style() == *style) set_currentPresetThemeId(preset.id);
        return;
    }
    const PresetTheme& first = PresetTheme::all().front();
    setStyle(first.style());
    if (!currentPresetThemeId()) set_currentPresetThemeId(first.id);
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

// A state that nothing tells from the current one, not even a colour, would be a step of undo that
// does nothing.
void EditorViewModel::recordSnapshot() {
    EditorSnapshot snapshot{{liveAnnotations(), canvasState(), backdrop(), mockup(), frameStyle()},
                            screenshot()};
    const auto& current = historyManager_.currentState();
    if (current && *current == snapshot &&
        encodeJson(current->state.annotations) == encodeJson(snapshot.state.annotations)) {
        return;
    }
    historyManager_.record(std::move(snapshot));
}

void EditorViewModel::recomputeUndoFlags() {
    const auto& annotationHistory = annotationVM_.historyService();
    set_canUndo(isAnnotationMode() ? annotationHistory.canUndo() : historyManager_.canUndo());
    set_canRedo(isAnnotationMode() ? annotationHistory.canRedo() : historyManager_.canRedo());
}

void EditorViewModel::undo() {
    if (isAnnotationMode()) {
        annotationVM_.undo();
        synchroniseAnnotations();
    } else if (const auto snapshot = historyManager_.undo()) {
        apply(*snapshot);
    }
}

void EditorViewModel::redo() {
    if (isAnnotationMode()) {
        annotationVM_.redo();
        synchroniseAnnotations();
    } else if (const auto snapshot = historyManager_.redo()) {
        apply(*snapshot);
    }
}

void EditorViewModel::apply(const EditorSnapshot& snapshot) {
    const EditorState& state = snapshot.state;
    if (snapshot.screenshot.bitmap().cacheKey() != screenshot().bitmap().cacheKey()) {
        set_screenshot(snapshot.screenshot);
    }
    setAnnotations(state.annotations);
    annotationVM_.setAnnotations(state.annotations);
    set_canvasState(state.canvasState);
    setStyle({state.backdrop, state.mockup, state.frameStyle});
}

void EditorViewModel::reset() {
    if (screenshot().isNull()) return;
    CanvasState canvas;
    canvas.canvasSize = screenshot().pointSize();
    set_canvasState(canvas);
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
    return layout.isValid() ? layout.outputPixels() : QSize(0, 0);
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
