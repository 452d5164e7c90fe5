#pragma once

#include "annotation/editing/SelectionHandles.h"
#include "editor/canvas/CanvasViewport.h"
#include "editor/document/EditorViewModel.h"

namespace kestrio {

/// What a pointer event holds, in points of the view.
struct PointerEvent {
    QPointF position;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};

/// The size of a record that is being resized, for a label beside it.
struct DimensionLabel {
    QString text;
    QPointF position;  ///< points of the view, below the record
    bool isSnapped = false;

    bool operator==(const DimensionLabel&) const = default;
};

/// Turns pointer events on the canvas into drawing, moving, selecting, erasing, resizing and
/// panning. Knows no window: the view forwards its events and shows what the view models say. Main
/// thread.
class CanvasInteraction {
  public:
    explicit CanvasInteraction(EditorViewModel& editor) : editor_(editor) {}

    void setViewport(const CanvasViewport& viewport) { viewport_ = viewport; }
    const CanvasViewport& viewport() const { return viewport_; }

    void press(const PointerEvent& event);
    void move(const PointerEvent& event);
    void release(const PointerEvent& event);
    void hover(const PointerEvent& event);
    void leave();
    /// Opens the editor of a text or a number under the pointer: gives the text's id, and starts
    /// number editing itself.
    std::optional<QUuid> doubleClick(const PointerEvent& event);
    /// Makes the record at a point of the view the primary one: others stay selected where it is
    /// one of them. False where there is none or annotation mode is off.
    bool selectAt(const QPointF& view);
    /// Zooms by steps of the wheel about the pointer, with a modifier that means zoom; pans
    /// otherwise. Points of the view.
    void wheel(const PointerEvent& event, const QPointF& pixels);

    Qt::CursorShape cursor() const;
    /// While a record is being resized.
    std::optional<DimensionLabel> dimensionLabel() const;
    /// In points of the view.
    double eraserRadius() const;
    bool isHoveringInactiveAnnotation() const { return isHoveringInactiveAnnotation_; }

    /// Handles of the selected record, in points of the view, while one is selected alone.
    std::vector<SelectionHandle> viewHandles() const;

  private:
    AnnotationViewModel& annotations() { return editor_.annotationVM(); }
    const AnnotationViewModel& annotations() const { return editor_.annotationVM(); }

    std::optional<AnyAnnotation> recordAt(const QPointF& view) const;
    bool pressHandle(const QPointF& view);
    void pressSelect(const PointerEvent& event);
    void pressDrawingTool(const QPointF& point);
    template <typename Kind, typename... Arguments>
    void begin(Arguments... arguments);
    void pan(const QPointF& view);
    QRectF pictureRect() const;

    EditorViewModel& editor_;
    CanvasViewport viewport_;
    QPointF pressView_;
    std::optional<QSizeF> panStart_;  ///< the canvas' offset as panning began, while it goes on
    bool isHoveringInactiveAnnotation_ = false;
};

}  // namespace kestrio
