#pragma once

#include "annotation/editing/Alignment.h"
#include "annotation/editing/AnnotationTool.h"
#include "annotation/editing/Gesture.h"
#include "annotation/editing/HitIndex.h"
#include "annotation/editing/NumberEditing.h"
#include "annotation/editing/TextEditing.h"
#include "annotation/history/AnnotationHistoryService.h"

#include <set>

namespace kestrio {

/// The annotations of one document, the tool, the selection and the gesture under way. All geometry
/// is in image points, from the image's top left corner. Operations on an id that is not there do
/// nothing. Main thread only.
class AnnotationViewModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(std::vector<AnyAnnotation> annotations READ annotations NOTIFY annotationsChanged)
    Q_PROPERTY(std::optional<AnyAnnotation> selectedAnnotation READ selectedAnnotation NOTIFY
                   selectedAnnotationChanged)
    Q_PROPERTY(std::optional<AnyAnnotation> hoveredAnnotation READ hoveredAnnotation WRITE
                   set_hoveredAnnotation NOTIFY hoveredAnnotationChanged)
    PUBLISHED(std::set<QUuid>, selectedAnnotations, {})
    PUBLISHED_WRITABLE(bool, isMultiSelectMode, false)
    PUBLISHED_WRITABLE(AnnotationTool, currentTool, AnnotationTool::select)
    PUBLISHED_WRITABLE(ToolSettings, toolSettings, {})
    PUBLISHED_WRITABLE(std::optional<QUuid>, newlyCreatedTextAnnotationId, std::nullopt)
    PUBLISHED(qint64, nextNumber, 1)
    PUBLISHED_WRITABLE(bool, autoSwitchToSelect, false)
    PUBLISHED(bool, annotationsVisible, true)
    PUBLISHED_WRITABLE(std::optional<QPointF>, cursorPosition, std::nullopt)
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

    /// The text that is typed in place, and the number.
    TextEditing& textEditing() { return textEditing_; }
    const TextEditing& textEditing() const { return textEditing_; }
    NumberEditing& numberEditing() { return numberEditing_; }
    const NumberEditing& numberEditing() const { return numberEditing_; }
    /// Ends both. An invalid number is dropped.
    void finishEditing();

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
    /// The same with several at once, as one step of undo.
    void addAnnotations(const std::vector<AnyAnnotation>& annotations);
    /// Replaces the record of the same id and leaves no step of undo.
    void applyAnnotation(const AnyAnnotation& annotation);
    /// Replaces the record of the same id; one step of undo where the two are not equal.
    void updateAnnotation(const AnyAnnotation& annotation);
    void deleteAnnotation(const QUuid& id);
    /// The same without a step of undo.
    void removeRecord(const QUuid& id);
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
    /// While a gesture is under way, these two cancel it and do nothing else.
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
    std::optional<AnyAnnotation> annotationAt(const QPointF& point) const;
    /// The topmost first.
    std::vector<AnyAnnotation> annotationsAt(const QPointF& point) const;
    /// Selects the next one below the selected one at a point; false where there is none at all.
    bool cycleSelection(const QPointF& point);

    // The gesture under way. There is one at most, and none while annotations are hidden.

    /// Begins a gesture; one that is still under way is cancelled.
    void begin(std::unique_ptr<Gesture> gesture);
    void moveGesture(const GesturePoint& point);
    void finishGesture();
    void cancelGesture();
    /// Null while none is under way.
    const Gesture* gesture() const { return gesture_.get(); }
    /// A gesture has begun, moved on or ended.
    Q_SIGNAL void gestureChanged();
    /// What views show of the gesture; see there.
    std::optional<AnyAnnotation> recordBeingDrawn() const;
    std::optional<QRectF> selectionRect() const;
    std::vector<AlignmentGuide> activeAlignmentGuides() const;
    bool isMovingRecord() const { return gesture_ && gesture_->isMovingRecord(); }

    // What gestures are made of.

    /// Adds what a tool has made and selects it.
    void addDrawn(const AnyAnnotation& annotation);
    /// Deletes what the round eraser touches; how many records.
    int eraseAt(const QPointF& point, double radius);
    /// The record with its bounds moved there, as far as its kind may go.
    AnyAnnotation movedTo(AnyAnnotation record, const QRectF& bounds) const;
    /// The guides along which a record stands with the others.
    std::vector<AlignmentGuide> guidesFor(const AnyAnnotation& record) const;
    /// The point of the picture that is next to a point; the point itself without a picture.
    QPointF heldInPicture(const QPointF& point) const;
    /// Seconds since 1970.
    double now() const { return clock_(); }

    // Aligning.

    void align(AlignmentType type);
    void distribute(DistributionAxis axis);

    // Numbers.

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
    void moveRecord(const QUuid& id, std::size_t toIndex);
    void reorder(const QUuid& id, std::size_t toIndex);
    void undoOperation(const AnnotationOperation& operation);
    void redoOperation(const AnnotationOperation& operation);
    void changeSelection(const Change& change);
    void moveRecordsTo(const std::vector<AnyAnnotation>& records, const std::vector<QRectF>& rects);

    std::vector<AnyAnnotation> annotations_;
    /// Of `annotations_` since they last changed; nothing until it is needed.
    mutable std::optional<HitIndex> hitIndex_;
    std::optional<AnyAnnotation> selectedAnnotation_;
    std::optional<AnyAnnotation> hoveredAnnotation_;
    AnnotationHistoryService historyService_;
    Clock clock_;
    TextEditing textEditing_;
    NumberEditing numberEditing_;
    std::unique_ptr<Gesture> gesture_;
};

}  // namespace kestrio
