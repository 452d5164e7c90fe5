#pragma once

#include "annotation/editing/AnnotationViewModel.h"
#include "annotation/history/HistoryManager.h"
#include "editor/document/EditorServices.h"
#include "editor/document/EditorState.h"
#include "editor/document/ToolMemory.h"
#include "editor/document/UnexportedChanges.h"
#include "imaging/CapturedImage.h"
#include "library/color/ColorPickerViewModel.h"
#include "library/drafts/DraftDocument.h"
#include "render/style/Theme.h"
#include "render/watermark/WatermarkViewModel.h"

#include <QTimer>
#include <memory>

namespace kestrio {

/// The sections of the panel beside the canvas.
enum class RightPanelSection { backdrop, frame, mockup, colors, watermark };

inline constexpr EnumTable<RightPanelSection, 5> rightPanelSections = {{
    {RightPanelSection::backdrop, "backdrop"},
    {RightPanelSection::frame, "frame"},
    {RightPanelSection::mockup, "mockup"},
    {RightPanelSection::colors, "colors"},
    {RightPanelSection::watermark, "watermark"},
}};
constexpr const auto& enumTable(RightPanelSection) {
    return rightPanelSections;
}

/// The document of one editor window: the picture, its style, its annotations, and everything that
/// is made of them. Main thread; what takes long leaves it with a copy of the values.
class EditorViewModel : public QObject {
    Q_OBJECT
    PUBLISHED(Image, screenshot, {})
    /// There is no picture yet: a capture is still being put together.
    PUBLISHED(bool, isProcessingCapture, false)
    PUBLISHED_WRITABLE(CanvasState, canvasState, {})
    PUBLISHED_WRITABLE(BackdropSettings, backdrop, {})
    PUBLISHED_WRITABLE(MockupSettings, mockup, {})
    PUBLISHED_WRITABLE(FrameStyle, frameStyle, FrameStyle::none)
    PUBLISHED_WRITABLE(double, frameScale, 1.0)
    PUBLISHED(std::optional<Theme>, currentTheme, std::nullopt)
    PUBLISHED(std::optional<QString>, currentPresetThemeId, std::nullopt)
    PUBLISHED(bool, isAnnotationMode, false)
    /// Annotation mode is on, but its palette waits until a colour has been picked.
    PUBLISHED(bool, isAnnotationPanelPresentationDeferred, false)
    PUBLISHED_WRITABLE(bool, isShortcutOverlayVisible, false)
    PUBLISHED_WRITABLE(bool, isRightPanelExpanded, true)
    PUBLISHED_WRITABLE(std::optional<RightPanelSection>, expandedPanel, RightPanelSection::backdrop)
    PUBLISHED(bool, isCropMode, false)
    PUBLISHED_WRITABLE(QRectF, cropRect, {})
    PUBLISHED(bool, cropLockAspectRatio, false)
    PUBLISHED(std::optional<double>, cropLockedRatio, std::nullopt)
    PUBLISHED(bool, canUndo, false)
    PUBLISHED(bool, canRedo, false)
    PUBLISHED(bool, isExporting, false)
    PUBLISHED(bool, isEnhancingImage, false)
    PUBLISHED_WRITABLE(std::optional<QString>, errorMessage, std::nullopt)
    PUBLISHED_WRITABLE(std::optional<QString>, toastMessage, std::nullopt)

  public:
    explicit EditorViewModel(EditorServices services, QObject* parent = nullptr);
    ~EditorViewModel() override;

    /// Committed annotations; while annotation mode is on, annotationVM() has the live ones.
    const std::vector<AnyAnnotation>& annotations() const { return annotations_; }
    Q_SIGNAL void annotationsChanged();
    AnnotationViewModel& annotationVM() { return annotationVM_; }
    const AnnotationViewModel& annotationVM() const { return annotationVM_; }
    ColorPickerViewModel& colorPickerVM() { return colorPickerVM_; }
    const ColorPickerViewModel& colorPickerVM() const { return colorPickerVM_; }
    WatermarkViewModel& watermarkVM() { return watermarkVM_; }
    const WatermarkViewModel& watermarkVM() const { return watermarkVM_; }
    const HistoryManager<EditorSnapshot>& historyManager() const { return historyManager_; }

    // The document.

    /// Shows that a picture is being made, until loadCapture() brings it.
    void awaitCapture() { set_isProcessingCapture(true); }
    /// Opens a picture: canvas of its size, the style used last, else the first preset. A document
    /// of the history keeps the canvas and style that it was given.
    void loadCapture(const CapturedImage& capture);
    /// Where on the desktop the picture was taken, in points; empty where it was not captured.
    const QRectF& capturedRect() const { return capturedRect_; }
    const QDateTime& capturedDate() const { return capturedDate_; }
    /// The record of this document in the history, once there is one.
    const std::optional<QUuid>& historyItemId() const { return historyItemId_; }
    void setHistoryItemId(const QUuid& id) { historyItemId_ = id; }
    /// Shows another picture in the same style; annotations go, undo brings all back.
    void replaceScreenshot(const Image& image);
    /// Keeps the present state as one step of undo, with what was being typed. Called after each
    /// change that a user made.
    void recordSnapshot();
    /// These walk the history of the mode that is on, after ending what is being typed. While
    /// cropping, both end that and do nothing else.
    void undo();
    void redo();
    void reset();
    /// Writes the style that still waits and forgets all steps of undo. Once, before the end.
    void cleanUp();
    /// What is kept on the disk of a document under this name.
    DraftDocument draft(const QString& name) const;
    /// Makes a fresh document what it was when its draft was written. All of it counts as never
    /// exported.
    void restoreDraft(const DraftDocument& draft);

    // Style.

    void applyPresetTheme(const PresetTheme& preset);
    void applyTheme(const Theme& theme);
    /// The geometry of the finished picture before it is turned; not valid without a screenshot.
    CompositeLayout layout() const { return layoutAt(1); }
    /// Of the finished picture, turned; none without a screenshot.
    QSize outputPixels() const;
    EditorStyleSettings style() const { return {backdrop(), mockup(), frameStyle()}; }
    void setAspectRatio(const AspectRatio& aspectRatio);

    /// A calm backdrop that suits the picture.
    void autoBeautify();

    // Enhancement. Undo brings the picture before it back, as restoreOriginalImage() does.

    /// False where the picture was replaced by another one meanwhile, which is left as it is.
    /// Throws AIEnhancementError, and ExportError::renderingFailed without a screenshot.
    Task<bool> enhanceImage(AIEnhancementMode mode, double strength);
    void restoreOriginalImage();
    bool canRestoreOriginalImage() const { return screenshotBeforeEnhancement_.has_value(); }
    Q_SIGNAL void canRestoreOriginalImageChanged();

    // Annotations.

    void toggleAnnotationMode();
    void leaveAnnotationMode();
    /// Adds annotations that were drawn elsewhere, and goes on with a tool and a colour where they
    /// are given.
    void startAnnotating(const std::vector<AnyAnnotation>& annotations,
                         std::optional<AnnotationTool> tool, std::optional<CodableColor> color);
    /// The annotations that count, whether annotation mode is on or not.
    const std::vector<AnyAnnotation>& liveAnnotations() const;
    /// Takes over what was drawn; called after each gesture on the canvas.
    void synchroniseAnnotations();
    /// Ends the typing of texts and numbers and takes over what was typed.
    void finishEditing();
    /// Whether there are blurs that are hidden with all other annotations, so that an output would
    /// show what they cover.
    bool hidesRedactions() const;

    using UseColor = std::function<void(const PickedColor&)>;
    /// Starts or ends picking a colour from the picture. Annotation mode, where it was on, goes on
    /// afterwards with the same selection. The colour goes to `use`; where none is given, it
    /// becomes the tools' colour if annotation mode was on.
    void toggleColorPicker(UseColor use = {});

    // Turning and cropping.

    void rotateClockwise() { turnBy(90); }
    void rotateCounterClockwise() { turnBy(-90); }
    void enterCropMode();
    void applyCrop();
    void cancelCrop();
    /// Locks the crop frame to a ratio (width by height), or frees it.
    void setCropRatio(std::optional<double> ratio);
    /// `percent` as typed; texts that are no whole number change nothing.
    void setZoomText(const QString& percent);
    void setZoom(double scale);

    // Output. Each finishes a drawing in progress first, takes a copy of the document, and leaves
    // the main thread. All throw ExportError::renderingFailed without a screenshot.

    CompositeRequest outputRequest();
    /// What outputRequest() would be now, without finishing a drawing. Any picture, also none.
    CompositeRequest presentPicture() const;
    /// Notes that the picture of this request has left the editor. Output does so by itself.
    void markExported(const CompositeRequest& picture);
    Q_SIGNAL void exported();
    /// Whether the user changed something since the picture was opened or last left the editor.
    bool hasUnexportedChanges() const { return unexported_.wouldLose(wholePicture()); }
    const UnexportedChanges& unexportedChanges() const { return unexported_; }
    /// presentPicture() with the annotations that are hidden, which are work too.
    CompositeRequest wholePicture() const;
    Task<Image> prepareRenderedImage();
    /// Throws what rendering, encoding and writing throw; the document is untouched by it.
    Task<SavedFile> exportImage(SaveTarget target, ExportFormat format, EncodeHooks hooks = {});
    Task<> copyToClipboard();
    /// Floats the finished picture on the desktop. Does nothing without a screenshot.
    Task<> pinToDesktop();
    bool canPin() const { return services_.pins != nullptr; }

  private:
    CompositeLayout layoutAt(double pixelDensity) const;
    void setAnnotations(std::vector<AnyAnnotation> annotations);
    void turnBy(double degrees);
    void startAfresh();
    void loadPersistedStyle();
    /// Marks the built-in style that this one is, if any.
    void showPresetOf(EditorStyleSettings style);
    void setStyle(const EditorStyleSettings& style);
    /// A style that was made for any picture, with what this document does about pixels.
    void setLook(EditorStyleSettings style);
    void apply(const EditorSnapshot& snapshot);
    void recomputeUndoFlags();
    void leaveCropMode();
    void connectColorPicker();
    void replaceKeepingAnnotations(const Image& image);
    void setOriginal(std::optional<Image> original);
    void enterAnnotationMode();
    void resumeAfterPicking();
    void usePickedColor(const PickedColor& picked);
    void stopPicking();
    friend class OutputUnderWay;
    /// Replaces the picture by a part of itself; annotations stay on what they mark.
    void crop(const QRect& pixels);
    void persistStyle();

    EditorServices services_;
    QRectF capturedRect_;
    QDateTime capturedDate_;
    std::optional<QUuid> historyItemId_;
    std::vector<AnyAnnotation> annotations_;
    AnnotationViewModel annotationVM_;
    ToolMemory toolMemory_;
    ColorPickerViewModel colorPickerVM_;
    bool annotatesAfterPicking_ = false;
    std::vector<QUuid> selectionBeforePicking_;
    UseColor usePicked_;
    WatermarkViewModel watermarkVM_;
    HistoryManager<EditorSnapshot> historyManager_;
    std::optional<Image> screenshotBeforeEnhancement_;
    int outputsUnderWay_ = 0;
    UnexportedChanges unexported_;
    QTimer stylePersistence_;
    bool isCleanedUp_ = false;
};

}  // namespace kestrio
