#pragma once

#include "annotation/drawing/AlignmentGuideService.h"
#include "annotation/drawing/BrushStrokeOptimizer.h"
#include "annotation/editing/Alignment.h"
#include "annotation/editing/AnnotationTool.h"
#include "annotation/editing/HitIndex.h"
#include "annotation/editing/TextGrowth.h"
#include "annotation/history/AnnotationHistoryService.h"

#include <set>

namespace kestrio {

/// The editor of one badge's number.
struct NumberEditingState {
    bool isEditing = false;
    std::optional<QUuid> editingAnnotationId;
    QString inputValue;
    std::optional<QString> errorMessage;

    bool operator==(const NumberEditingState&) const = default;
};

/// The annotations of one document, the tool, the selection and what is being drawn. All geometry
/// is in image points, from the image's top left corner. Operations on an id that is not there do
/// nothing. Main thread only.
class AnnotationViewModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(std::vector<AnyAnnotation> annotations READ annotations NOTIFY annotationsChanged)
    Q_PROPERTY(std::optional<AnyAnnotation> selectedAnnotation READ selectedAnnotation NOTIFY
                   selectedAnnotationChanged)
    Q_PROPERTY(std::optional<AnyAnnotation> hoveredAnnotation READ hoveredAnnotation WRITE
                   set_hoveredAnnotation NOTIFY hoveredAnnotationChanged)
    Q_PROPERTY(std::optional<AnyAnnotation> dragStartAnnotation READ dragStartAnnotation NOTIFY
                   dragStartAnnotationChanged)
    PUBLISHED(std::set<QUuid>, selectedAnnotations, {})
    PUBLISHED_WRITABLE(bool, isMultiSelectMode, false)
    PUBLISHED(bool, isSelectionRectActive, false)
    PUBLISHED(std::optional<QPointF>, selectionRectStart, std::nullopt)
    PUBLISHED_WRITABLE(std::optional<QPointF>, selectionRectEnd, std::nullopt)
    PUBLISHED_WRITABLE(AnnotationTool, currentTool, AnnotationTool::select)
    PUBLISHED(bool, isDraggingAnnotation, false)
    PUBLISHED_WRITABLE(bool, isResizingViaControlPoint, false)
    PUBLISHED(std::optional<QRectF>, dragStartBounds, std::nullopt)
    PUBLISHED_WRITABLE(ToolSettings, toolSettings, {})
    PUBLISHED(bool, isDrawing, false)
    PUBLISHED(std::vector<QPointF>, currentDrawingPoints, {})
    PUBLISHED(std::vector<double>, currentDrawingTimestamps, {})
    PUBLISHED_WRITABLE(std::optional<QUuid>, newlyCreatedTextAnnotationId, std::nullopt)
    /// The text that is being typed in place; none while none is.
    PUBLISHED(std::optional<QUuid>, editedTextId, std::nullopt)
    PUBLISHED(bool, isTextEditing, false)
    PUBLISHED(std::optional<QPointF>, drawingStartPoint, std::nullopt)
    PUBLISHED_WRITABLE(std::optional<QPointF>, drawingEndPoint, std::nullopt)
    PUBLISHED_WRITABLE(std::optional<QPointF>, eraserPosition, std::nullopt)
    PUBLISHED_WRITABLE(bool, isErasing, false)
    PUBLISHED(qint64, nextNumber, 1)
    PUBLISHED_WRITABLE(NumberEditingState, numberEditingState, {})
    PUBLISHED_WRITABLE(bool, autoSwitchToSelect, false)
    PUBLISHED(bool, annotationsVisible, true)
    PUBLISHED_WRITABLE(std::optional<QPointF>, cursorPosition, std::nullopt)
    PUBLISHED_WRITABLE(std::vector<AlignmentGuide>, activeAlignmentGuides, {})
    /// The screenshot's rectangle. Blurs that are moved stay within it, since they change nothing
    /// else, and texts that are typed grow to its right edge; no limit while it is empty.
    PUBLISHED_WRITABLE(QRectF, pictureRect, {})

  public:
    /// Seconds since 1970.
    using Clock = std::function<double()>;

    explicit AnnotationViewModel(std::vector<AnyAnnotation> annotations = {},
                                 MemoryPressure* memoryPressure = nullptr,
                                 Clock clock = systemClock, QObject* parent = nullptr);

    // Written out, unlike the properties above: annotations that differ in colour alone are equal,
    // yet views must hear of it.

    /// From the bottom to the top.
    const std::vector<AnyAnnotation>& annotations() const { return annotations_; }
    Q_SIGNAL void annotationsChanged();
    /// A copy of the primary of the selected records.
    const std::optional<AnyAnnotation>& selectedAnnotation() const { return selectedAnnotation_; }
    Q_SIGNAL void selectedAnnotationChanged();
    const std::optional<AnyAnnotation>& hoveredAnnotation() const { return hoveredAnnotation_; }
    void set_hoveredAnnotation(std::optional<AnyAnnotation> annotation);
    Q_SIGNAL void hoveredAnnotationChanged();
    const std::optional<AnyAnnotation>& dragStartAnnotation() const { return dragStartAnnotation_; }
    Q_SIGNAL void dragStartAnnotationChanged();

    AnnotationHistoryService& historyService() { return historyService_; }
    const AnnotationHistoryService& historyService() const { return historyService_; }

    /// The record of an id, or null; valid until the list changes.
    const AnyAnnotation* annotation(const QUuid& id) const;

    // Changing and recording.

    /// Replaces the whole list, as when another document is shown: nothing is selected, hovered
    /// over, drawn, typed or dragged any more. Steps of undo belong to the list that they were made
    /// in, so with another one they go.
    void setAnnotations(std::vector<AnyAnnotation> annotations);
    /// Moves all records and what undo knows of them, as when the picture's origin moves.
    void translateAll(const QPointF& offset);
    void addAnnotation(const AnyAnnotation& annotation);
    /// Replaces the record of the same id and leaves no step of undo.
    void applyAnnotation(const AnyAnnotation& annotation);
    /// Replaces the record of the same id; one step of undo where the two are not equal.
    void updateAnnotation(const AnyAnnotation& annotation);
    void deleteAnnotation(const QUuid& id);
    /// One step of undo for each record.
    void deleteSelected();
    /// These three set the tools and the selection alike.
    void setColor(const CodableColor& color);
    void setStrokeSize(StrokeSize size);
    void setFillMode(FillMode mode);
    /// One of these three was called, unlike when a selection changes the settings.
    Q_SIGNAL void toolSettingsChosen();
    void bringToFront(const QUuid& id);
    void sendToBack(const QUuid& id);
    void bringSelectedToFront();
    void sendSelectedToBack();
    void toggleVisibility();
    void undo();
    void redo();

    // Selecting.

    void selectAnnotation(const std::optional<AnyAnnotation>& annotation);
    void addToSelection(const AnyAnnotation& annotation);
    void removeFromSelection(const QUuid& id);
    void toggleSelection(const AnyAnnotation& annotation);
    void selectAll();
    /// Adds what the rectangle crosses.
    void selectInRect(const QRectF& rect);
    /// Around all selected records; none where none is.
    std::optional<QRectF> combinedBounds() const;
    void beginSelectionRect(const QPointF& point);
    void finishSelectionRect();
    std::optional<QRectF> selectionRect() const;
    std::optional<AnyAnnotation> annotationAt(const QPointF& point) const;
    /// The topmost first.
    std::vector<AnyAnnotation> annotationsAt(const QPointF& point) const;
    /// Selects the next one below the selected one at a point; false where there is none at all.
    bool cycleSelection(const QPointF& point);

    // Drawing and erasing.

    void startDrawing(const QPointF& point);
    void continueDrawing(const QPointF& point);
    void finishDrawing();
    /// What is being drawn as the record that it would become now; a stroke with all of its raw
    /// points. Nothing where nothing is drawn, or too little.
    std::optional<AnyAnnotation> recordBeingDrawn() const;
    void clearDrawingState();
    /// A box of the usual size, for a click.
    void addTextAnnotation(const QPointF& at);
    void eraseAt(const QPointF& point, double radius);

    // Typing. What is typed is in the record at once; the steps of undo are made at the end.

    /// Nothing happens where the id is no text's.
    void beginTextEditing(const QUuid& id);
    /// The box grows with its text: to the right as long as its text was not wrapped when typing
    /// began, and downwards.
    void setEditedText(const QString& text);
    /// One step of undo with what was typed; of a text that was just made, the step that made it. A
    /// text left empty goes, as if it had never been made where it is new.
    void endTextEditing();
    /// Ends the typing of texts and numbers. An invalid number is dropped.
    void finishEditing();

    // Moving and aligning.

    void beginDrag();
    /// `offset` counts from where the drag began.
    void dragTo(const QPointF& offset);
    void endDrag();
    void updateGuides();
    QRectF snappedRect(const QRectF& rect) const;
    /// Moves the primary onto the active guides, and clears them. Comes before endDrag(), whose
    /// step of undo it is part of.
    void snapToGuides();
    void align(AlignmentType type);
    void distribute(DistributionAxis axis);

    // Numbers.

    void startNumberEditing(const AnyAnnotation& annotation);
    void commitNumberEdit();
    void cancelNumberEdit();
    /// Counts the badges again in the order of their numbers, from one of them or from the lowest.
    void renumber(const std::optional<QUuid>& from, qint64 startingAt);
    void recomputeNextNumber();

    // Derived for views.

    bool isFillPickerShown() const;
    std::optional<BlurAnnotation> selectedBlur() const;
    bool isToolCursorPreviewShown() const;

    static double systemClock();

  private:
    using Change = std::function<void(AnyAnnotation&)>;

    AnyAnnotation* find(const QUuid& id);
    std::size_t indexOf(const QUuid& id) const;
    bool isSelected(const QUuid& id) const { return selectedAnnotations().contains(id); }
    std::vector<AnyAnnotation> selectedRecords() const;
    /// The topmost record at a point among those below the `end`-th.
    std::optional<std::size_t> hitBefore(std::size_t end, const QPointF& point) const;
    void setPrimary(std::optional<AnyAnnotation> annotation);
    void appendRecord(const AnyAnnotation& annotation);
    void removeRecord(const QUuid& id);
    void moveRecord(const QUuid& id, std::size_t toIndex);
    void reorder(const QUuid& id, std::size_t toIndex);
    void undoOperation(const AnnotationOperation& operation);
    void redoOperation(const AnnotationOperation& operation);
    void changeSelection(const Change& change);
    DrawnGesture drawnGesture() const;
    void finishNewAnnotation(const AnyAnnotation& annotation);
    void moveRecordsTo(const std::vector<AnyAnnotation>& records, const std::vector<QRectF>& rects);
    AnyAnnotation movedTo(AnyAnnotation record, const QRectF& bounds) const;
    void dropEmptyText(const AnyAnnotation& before);

    std::vector<AnyAnnotation> annotations_;
    /// Of `annotations_` since they last changed; nothing until it is needed.
    mutable std::optional<HitIndex> hitIndex_;
    std::optional<AnyAnnotation> selectedAnnotation_;
    std::optional<AnyAnnotation> hoveredAnnotation_;
    std::optional<AnyAnnotation> dragStartAnnotation_;
    /// The edited text as it was before, and how it may grow.
    std::optional<AnyAnnotation> textBefore_;
    TextGrowth textGrowth_;
    AnnotationHistoryService historyService_;
    Clock clock_;
};

}  // namespace kestrio
