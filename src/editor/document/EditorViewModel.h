#pragma once

#include "annotation/history/HistoryManager.h"
#include "editor/crop/CropSession.h"
#include "editor/document/AnnotationSession.h"
#include "editor/document/AutoRedaction.h"
#include "editor/document/EditorState.h"
#include "editor/document/OutputModel.h"
#include "editor/document/PictureEnhancement.h"
#include "editor/document/StyleModel.h"
#include "editor/text/OCRViewModel.h"
#include "imaging/CapturedImage.h"
#include "library/drafts/DraftDocument.h"
#include "render/watermark/WatermarkViewModel.h"

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

/// The document of one editor window: the picture and its canvas, undo, and a part for each other
/// thing that a document has. It decides what excludes what, as annotating and cropping do, and
/// what becomes a step of undo. Main thread; what takes long leaves it with a copy of the values.
class EditorViewModel : public QObject {
    Q_OBJECT
    PUBLISHED(Image, screenshot, {})
    /// There is no picture yet: a capture is still being put together.
    PUBLISHED(bool, isProcessingCapture, false)
    PUBLISHED_WRITABLE(CanvasState, canvasState, {})
    PUBLISHED_WRITABLE(bool, isShortcutOverlayVisible, false)
    PUBLISHED_WRITABLE(bool, isRightPanelExpanded, true)
    PUBLISHED_WRITABLE(std::optional<RightPanelSection>, expandedPanel, RightPanelSection::backdrop)
    PUBLISHED(bool, canUndo, false)
    PUBLISHED(bool, canRedo, false)
    PUBLISHED_WRITABLE(std::optional<QString>, errorMessage, std::nullopt)
    PUBLISHED_WRITABLE(std::optional<QString>, toastMessage, std::nullopt)

  public:
    explicit EditorViewModel(EditorServices services, QObject* parent = nullptr);
    ~EditorViewModel() override;

    // Its parts.

    StyleModel& styleModel() { return styleModel_; }
    const StyleModel& styleModel() const { return styleModel_; }
    AnnotationSession& annotationSession() { return annotationSession_; }
    const AnnotationSession& annotationSession() const { return annotationSession_; }
    CropSession& cropSession() { return cropSession_; }
    const CropSession& cropSession() const { return cropSession_; }
    PictureEnhancement& enhancement() { return enhancement_; }
    const PictureEnhancement& enhancement() const { return enhancement_; }
    AutoRedaction& autoRedaction() { return autoRedaction_; }
    const AutoRedaction& autoRedaction() const { return autoRedaction_; }
    OutputModel& outputModel() { return outputModel_; }
    const OutputModel& outputModel() const { return outputModel_; }
    OCRViewModel& ocrVM() { return ocrVM_; }
    const OCRViewModel& ocrVM() const { return ocrVM_; }
    WatermarkViewModel& watermarkVM() { return watermarkVM_; }
    const WatermarkViewModel& watermarkVM() const { return watermarkVM_; }

    // What everybody asks of them.

    EditorStyleSettings style() const { return styleModel_.style(); }
    AnnotationViewModel& annotationVM() { return annotationSession_.annotationVM(); }
    const AnnotationViewModel& annotationVM() const { return annotationSession_.annotationVM(); }
    ColorPickerViewModel& colorPickerVM() { return annotationSession_.colorPickerVM(); }
    const ColorPickerViewModel& colorPickerVM() const { return annotationSession_.colorPickerVM(); }
    bool isAnnotationMode() const { return annotationSession_.isAnnotationMode(); }
    const std::vector<AnyAnnotation>& annotations() const {
        return annotationSession_.annotations();
    }
    const std::vector<AnyAnnotation>& liveAnnotations() const {
        return annotationSession_.liveAnnotations();
    }
    void synchroniseAnnotations() { annotationSession_.synchroniseAnnotations(); }
    void finishEditing() { annotationSession_.finishEditing(); }
    bool isCropMode() const { return cropSession_.isCropMode(); }

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
    void setAspectRatio(const AspectRatio& aspectRatio);
    /// A calm backdrop that suits the picture.
    void autoBeautify();

    // Modes. One ends the other.

    void toggleAnnotationMode();
    void leaveAnnotationMode() { annotationSession_.leave(); }
    /// Adds annotations that were drawn elsewhere, and goes on with a tool and a colour where they
    /// are given.
    void startAnnotating(const std::vector<AnyAnnotation>& annotations,
                         std::optional<AnnotationTool> tool, std::optional<CodableColor> color);
    /// Adds marks to the annotations, as one step of undo, and shows all of these; modes stay.
    void addMarks(const std::vector<AnyAnnotation>& marks);
    /// Starts or ends picking a colour from the picture; see AnnotationSession::startPicking().
    void toggleColorPicker(AnnotationSession::UseColor use = {});
    void enterCropMode();
    void applyCrop();
    void cancelCrop();

    // The canvas.

    void rotateClockwise() { turnBy(90); }
    void rotateCounterClockwise() { turnBy(-90); }
    /// `percent` as typed; texts that are no whole number change nothing.
    void setZoomText(const QString& percent);
    void setZoom(double scale);
    /// Other pixels for the same picture, whose size in points stays; one step of undo.
    void replacePixels(const Image& image);

    // Its text.

    /// Reads the text of the picture; see OCRViewModel. Failures become errorMessage.
    Task<> performOCR();

    // The finished picture.

    /// Finishes a drawing in progress. Throws ExportError::renderingFailed without a screenshot.
    CompositeRequest outputRequest();
    /// What outputRequest() would be now, without finishing a drawing. Any picture, also none.
    CompositeRequest presentPicture() const;
    /// presentPicture() with the annotations that are hidden, which are work too.
    CompositeRequest wholePicture() const;

  private:
    CompositeLayout layoutAt(double pixelDensity) const;
    void turnBy(double degrees);
    void startAfresh();
    void enterAnnotationMode();
    void apply(const EditorSnapshot& snapshot);
    void connectUndo();
    void connectText();
    void recomputeUndoFlags();
    void useForBackdrop(const PickedColor& picked);
    /// Replaces the picture by a part of itself; annotations stay on what they mark.
    void crop(const QRect& pixels);

    QRectF capturedRect_;
    QDateTime capturedDate_;
    std::optional<QUuid> historyItemId_;
    StyleModel styleModel_;
    AnnotationSession annotationSession_;
    CropSession cropSession_;
    PictureEnhancement enhancement_;
    AutoRedaction autoRedaction_;
    OutputModel outputModel_;
    OCRViewModel ocrVM_;
    WatermarkViewModel watermarkVM_;
    HistoryManager<EditorSnapshot> historyManager_;
    bool isCleanedUp_ = false;
};

}  // namespace kestrio
