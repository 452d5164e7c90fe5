#include "editor/canvas/CanvasInteraction.h"

#include "annotation/drawing/DrawingConstraintService.h"
#include "annotation/gestures/DragGesture.h"
#include "annotation/gestures/DrawGesture.h"
#include "annotation/gestures/EraseGesture.h"
#include "annotation/gestures/HandleGesture.h"
#include "annotation/gestures/RubberBandGesture.h"
#include "annotation/model/AnnotationKind.h"
#include "annotation/model/Geometry.h"

#include <array>

namespace kestrio {

namespace {

constexpr double handleReach = 10;        // points of the view within which a handle is caught
constexpr double rotationHandleGap = 24;  // points of the view above the top edge
constexpr double pendingTravel = 5;       // points that turn a click on a text into a move

constexpr std::array<double, 4> eraserRadii = {16, 22, 28, 34};

}  // namespace

double CanvasInteraction::eraserRadius() const {
    return eraserRadii[static_cast<std::size_t>(annotations().toolSettings().strokeSize)];
}

std::optional<AnyAnnotation> CanvasInteraction::recordAt(const QPointF& view) const {
    return annotations().annotationAt(viewport_.toImage(view));
}

std::vector<SelectionHandle> CanvasInteraction::viewHandles() const {
    const auto& selected = annotations().selectedAnnotation();
    if (!editor_.isAnnotationMode() || !selected || viewport_.isEmpty() ||
        annotations().selectedAnnotations().size() > 1) {
        return {};
    }
    auto handles = selectionHandles(*selected, rotationHandleGap / viewport_.imageScale());
    for (SelectionHandle& handle : handles)
        handle.position = viewport_.toView(handle.position);
    return handles;
}

void CanvasInteraction::press(const PointerEvent& event) {
    panStart_.reset();
    annotations().cancelGesture();
    pressView_ = event.position;
    if (viewport_.isEmpty()) return;
    annotations().finishEditing();
    if (!editor_.isAnnotationMode()) {
        panStart_ = editor_.canvasState().transform.offset;
        return;
    }
    if (!viewport_.showsScreenshot() || pressHandle(event.position)) return;
    const QPointF point = viewport_.toImage(event.position);
    switch (annotations().currentTool()) {
        case AnnotationTool::select:
            pressSelect(event);
            break;
        case AnnotationTool::eraser:
            begin<EraseGesture>(point, eraserRadius() / viewport_.imageScale());
            annotations().set_cursorPosition(point);
            editor_.synchroniseAnnotations();
            break;
        default:
            pressDrawingTool(point);
            break;
    }
}

bool CanvasInteraction::pressHandle(const QPointF& view) {
    for (const SelectionHandle& handle : viewHandles()) {
        if (distance(handle.position, view) > handleReach) continue;
        begin<HandleGesture>(handle.role);
        return true;
    }
    return false;
}

void CanvasInteraction::pressSelect(const PointerEvent& event) {
    const QPointF point = viewport_.toImage(event.position);
    annotations().set_isMultiSelectMode(event.modifiers.testFlag(Qt::ShiftModifier));
    const auto hit = recordAt(event.position);
    if (!hit) {
        if (!annotations().isMultiSelectMode()) annotations().selectAnnotation(std::nullopt);
        begin<RubberBandGesture>(point);
        return;
    }
    if (annotations().isMultiSelectMode()) {
        annotations().toggleSelection(*hit);
        if (annotations().selectedAnnotations().contains(hit->id())) begin<DragGesture>(point);
        return;
    }
    if (event.modifiers.testFlag(Qt::AltModifier)) {
        if (annotations().cycleSelection(point)) begin<DragGesture>(point);
        return;
    }
    annotations().selectAnnotation(hit);
    begin<DragGesture>(point);
}

// Pressing on a record takes precedence over drawing.
void CanvasInteraction::pressDrawingTool(const QPointF& point) {
    auto hit = annotations().annotationAt(point);
    const auto& primary = annotations().selectedAnnotation();
    if (!hit && primary && contains(primary->bounds(), point)) hit = primary;
    if (hit) {
        if (!primary || primary->id() != hit->id()) annotations().selectAnnotation(hit);
        const bool isTyped = kindOf(*hit).editor == InPlaceEditor::text;
        begin<DragGesture>(point, isTyped ? pendingTravel / viewport_.imageScale() : 0);
        return;
    }
    annotations().selectAnnotation(std::nullopt);
    const bool isHeld = annotationToolInfo(annotations().currentTool()).isPictureBound;
    if (!isHeld || contains(pictureRect(), point)) begin<DrawGesture>(point);
}

QRectF CanvasInteraction::pictureRect() const {
    return {QPointF(), viewport_.imageSize()};
}

template <typename Kind, typename... Arguments>
void CanvasInteraction::begin(Arguments... arguments) {
    annotations().begin(std::make_unique<Kind>(annotations(), arguments...));
}

void CanvasInteraction::move(const PointerEvent& event) {
    const bool isShiftHeld = event.modifiers.testFlag(Qt::ShiftModifier);
    if (annotations().currentTool() == AnnotationTool::select) {
        annotations().set_isMultiSelectMode(isShiftHeld);
    }
    if (panStart_) pan(event.position);
    if (!annotations().gesture()) return;
    const QPointF point = viewport_.toImage(event.position);
    annotations().moveGesture({point, isShiftHeld});
    if (annotations().currentTool() == AnnotationTool::eraser) {
        annotations().set_cursorPosition(point);
        editor_.synchroniseAnnotations();
    }
}

void CanvasInteraction::pan(const QPointF& view) {
    CanvasState canvas = editor_.canvasState();
    canvas.transform.offset =
        *panStart_ + QSizeF(view.x() - pressView_.x(), view.y() - pressView_.y());
    editor_.set_canvasState(canvas);
}

std::optional<DimensionLabel> CanvasInteraction::dimensionLabel() const {
    const Gesture* const gesture = annotations().gesture();
    const auto bounds = gesture ? gesture->resizedBounds() : std::nullopt;
    if (!bounds) return std::nullopt;
    constexpr double snapThreshold = 1;
    constexpr double gap = 18;
    const bool isSnapped = DrawingConstraintService::isCommonSize(bounds->width(), snapThreshold) ||
                           DrawingConstraintService::isCommonSize(bounds->height(), snapThreshold);
    const QPointF below = viewport_.toView(QPointF(bounds->center().x(), bounds->bottom()));
    return DimensionLabel{QString::asprintf("%.0f × %.0f", bounds->width(), bounds->height()),
                          below + QPointF(0, gap), isSnapped};
}

void CanvasInteraction::release(const PointerEvent& event) {
    panStart_.reset();
    annotations().finishGesture();
    annotations().set_isMultiSelectMode(false);
    editor_.synchroniseAnnotations();
    hover(event);
}

void CanvasInteraction::hover(const PointerEvent& event) {
    if (viewport_.isEmpty() || !editor_.isAnnotationMode()) return;
    annotations().set_cursorPosition(viewport_.toImage(event.position));
    const auto hovered = recordAt(event.position);
    annotations().set_hoveredAnnotation(hovered);
    isHoveringInactiveAnnotation_ =
        hovered.has_value() && annotations().currentTool() != AnnotationTool::select;
}

void CanvasInteraction::leave() {
    annotations().set_cursorPosition(std::nullopt);
    annotations().set_hoveredAnnotation(std::nullopt);
    isHoveringInactiveAnnotation_ = false;
}

bool CanvasInteraction::selectAt(const QPointF& view) {
    if (!editor_.isAnnotationMode()) return false;
    const auto record = recordAt(view);
    if (!record) return false;
    annotations().finishEditing();
    if (annotations().selectedAnnotations().contains(record->id())) {
        annotations().addToSelection(*record);
    } else {
        annotations().selectAnnotation(record);
    }
    return true;
}

std::optional<QUuid> CanvasInteraction::doubleClick(const PointerEvent& event) {
    if (!editor_.isAnnotationMode()) return std::nullopt;
    const auto hit = recordAt(event.position);
    if (!hit) return std::nullopt;
    switch (kindOf(*hit).editor) {
        case InPlaceEditor::none:
            return std::nullopt;
        case InPlaceEditor::number:
            annotations().numberEditing().start(*hit);
            return std::nullopt;
        case InPlaceEditor::text:
            annotations().selectAnnotation(hit);
            return hit->id();
    }
    return std::nullopt;
}

void CanvasInteraction::wheel(const PointerEvent& event, const QPointF& pixels) {
    if (viewport_.isEmpty()) return;
    CanvasState canvas = editor_.canvasState();
    if (event.modifiers.testFlag(Qt::ControlModifier)) {
        constexpr double pixelsForDouble = 480;
        const double before = canvas.transform.scale;
        editor_.setZoom(before * std::exp2(pixels.y() / pixelsForDouble));
        canvas = editor_.canvasState();
        // What is under the pointer stays there.
        const QPointF center = viewport_.center();
        const QPointF shift = (event.position - center) * (1 - canvas.transform.scale / before);
        canvas.transform.offset += QSizeF(shift.x(), shift.y());
    } else {
        canvas.transform.offset += QSizeF(pixels.x(), pixels.y());
    }
    editor_.set_canvasState(canvas);
}

Qt::CursorShape CanvasInteraction::cursor() const {
    if (!editor_.isAnnotationMode()) {
        return panStart_ ? Qt::ClosedHandCursor : Qt::OpenHandCursor;
    }
    if (annotations().isMovingRecord()) return Qt::ClosedHandCursor;
    if (isHoveringInactiveAnnotation_) return Qt::OpenHandCursor;
    return annotationToolInfo(annotations().currentTool()).pointer;
}

}  // namespace kestrio
