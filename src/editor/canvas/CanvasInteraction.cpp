#include "editor/canvas/CanvasInteraction.h"

#include "annotation/drawing/DrawingConstraintService.h"
#include "annotation/model/Geometry.h"

#include <array>

namespace kestrio {

namespace {

constexpr double handleReach = 10;        // points of the view within which a handle is caught
constexpr double rotationHandleGap = 24;  // points of the view above the top edge
constexpr double pendingTravel = 5;       // points that turn a click on a text into a move
constexpr double textClickTravel = 10;    // less travel than this places a text box of usual size

constexpr std::array<double, 4> eraserRadii = {16, 22, 28, 34};

bool isLine(AnnotationTool tool) {
    return tool == AnnotationTool::arrow || tool == AnnotationTool::measurement;
}

bool isBox(AnnotationTool tool) {
    return tool == AnnotationTool::rectangle || tool == AnnotationTool::circle ||
           tool == AnnotationTool::blur;
}

QPointF nearestOf(const QRectF& rect, const QPointF& point) {
    return {std::clamp(point.x(), rect.left(), rect.right()),
            std::clamp(point.y(), rect.top(), rect.bottom())};
}

/// The corner of the square on the pointer's side.
QPointF squareCorner(const QPointF& start, const QPointF& end) {
    const QRectF square = DrawingConstraintService::squareRect(start, end);
    return {end.x() < start.x() ? square.left() : square.right(),
            end.y() < start.y() ? square.top() : square.bottom()};
}

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
    phase_ = Phase::none;
    pressView_ = event.position;
    if (viewport_.isEmpty()) return;
    annotations().finishEditing();
    if (!editor_.isAnnotationMode()) {
        phase_ = Phase::panning;
        panStart_ = editor_.canvasState().transform.offset;
        return;
    }
    if (!viewport_.showsScreenshot() || pressHandle(event.position)) return;
    switch (annotations().currentTool()) {
        case AnnotationTool::select:
            pressSelect(event);
            break;
        case AnnotationTool::eraser:
            phase_ = Phase::erasing;
            erase(event.position);
            break;
        default:
            pressDrawingTool(event);
            break;
    }
}

bool CanvasInteraction::pressHandle(const QPointF& view) {
    for (const SelectionHandle& handle : viewHandles()) {
        if (distance(handle.position, view) > handleReach) continue;
        phase_ = Phase::handle;
        handle_ = handle.role;
        handleStart_ = annotations().selectedAnnotation();
        annotations().set_isResizingViaControlPoint(true);
        return true;
    }
    return false;
}

void CanvasInteraction::pressSelect(const PointerEvent& event) {
    annotations().set_isMultiSelectMode(event.modifiers.testFlag(Qt::ShiftModifier));
    const auto hit = recordAt(event.position);
    if (!hit) {
        if (!annotations().isMultiSelectMode()) annotations().selectAnnotation(std::nullopt);
        annotations().beginSelectionRect(viewport_.toImage(event.position));
        phase_ = Phase::selecting;
        return;
    }
    if (annotations().isMultiSelectMode()) {
        annotations().toggleSelection(*hit);
        if (annotations().selectedAnnotations().contains(hit->id())) beginDrag();
        return;
    }
    if (event.modifiers.testFlag(Qt::AltModifier)) {
        if (annotations().cycleSelection(viewport_.toImage(event.position))) beginDrag();
        return;
    }
    annotations().selectAnnotation(hit);
    beginDrag();
}

// Pressing on a record takes precedence over drawing.
void CanvasInteraction::pressDrawingTool(const PointerEvent& event) {
    auto hit = recordAt(event.position);
    const auto& primary = annotations().selectedAnnotation();
    if (!hit && primary && contains(primary->bounds(), viewport_.toImage(event.position))) {
        hit = primary;
    }
    if (hit) {
        if (!primary || primary->id() != hit->id()) annotations().selectAnnotation(hit);
        if (hit->as<TextAnnotation>()) {
            phase_ = Phase::pendingText;
        } else {
            beginDrag();
        }
        return;
    }
    annotations().selectAnnotation(std::nullopt);
    if (annotations().currentTool() == AnnotationTool::blur &&
        !contains(pictureRect(), viewport_.toImage(event.position))) {
        return;
    }
    annotations().startDrawing(drawingPoint(event.position));
    if (annotations().isDrawing()) phase_ = Phase::drawing;
}

QRectF CanvasInteraction::pictureRect() const {
    return {QPointF(), viewport_.imageSize()};
}

// Blurs change the screenshot and nothing beside it.
QPointF CanvasInteraction::drawingPoint(const QPointF& view) const {
    const QPointF image = viewport_.toImage(view);
    return annotations().currentTool() == AnnotationTool::blur ? nearestOf(pictureRect(), image)
                                                               : image;
}

void CanvasInteraction::beginDrag() {
    annotations().beginDrag();
    phase_ = Phase::dragging;
}

void CanvasInteraction::move(const PointerEvent& event) {
    if (annotations().currentTool() == AnnotationTool::select) {
        annotations().set_isMultiSelectMode(event.modifiers.testFlag(Qt::ShiftModifier));
    }
    switch (phase_) {
        case Phase::none:
            break;
        case Phase::panning:
            pan(event.position);
            break;
        case Phase::handle:
            dragHandle(event);
            break;
        case Phase::pendingText:
            if (distance(event.position, pressView_) <= pendingTravel) break;
            beginDrag();
            dragTo(event.position);
            break;
        case Phase::selecting:
            annotations().set_selectionRectEnd(viewport_.toImage(event.position));
            break;
        case Phase::dragging:
            dragTo(event.position);
            break;
        case Phase::drawing:
            draw(event);
            break;
        case Phase::erasing:
            erase(event.position);
            break;
    }
}

void CanvasInteraction::dragTo(const QPointF& view) {
    annotations().dragTo(viewport_.toImage(view) - viewport_.toImage(pressView_));
    annotations().updateGuides();
}

void CanvasInteraction::draw(const PointerEvent& event) {
    const AnnotationTool tool = annotations().currentTool();
    const QPointF start = annotations().drawingStartPoint().value_or(QPointF());
    QPointF point = drawingPoint(event.position);
    if (event.modifiers.testFlag(Qt::ShiftModifier)) {
        if (isLine(tool)) point = DrawingConstraintService::constrainTo45Degrees(start, point);
        if (isBox(tool)) point = squareCorner(start, point);
    }
    annotations().continueDrawing(point);
}

void CanvasInteraction::erase(const QPointF& view) {
    const QPointF point = viewport_.toImage(view);
    annotations().set_cursorPosition(point);
    annotations().eraseAt(point, eraserRadius() / viewport_.imageScale());
    editor_.synchroniseAnnotations();
}

void CanvasInteraction::pan(const QPointF& view) {
    CanvasState canvas = editor_.canvasState();
    canvas.transform.offset =
        panStart_ + QSizeF(view.x() - pressView_.x(), view.y() - pressView_.y());
    editor_.set_canvasState(canvas);
}

void CanvasInteraction::dragHandle(const PointerEvent& event) {
    QPointF point = viewport_.toImage(event.position);
    if (handleStart_->as<BlurAnnotation>()) point = nearestOf(pictureRect(), point);
    HandleDrag drag{*handle_, point, event.modifiers.testFlag(Qt::ShiftModifier)};
    AnyAnnotation dragged = draggedByHandle(*handleStart_, drag);
    // In proportion a blur may still reach beyond the picture.
    if (dragged.as<BlurAnnotation>() && !pictureRect().contains(dragged.bounds())) {
        dragged.setBounds(dragged.bounds() & pictureRect());
    }
    annotations().applyAnnotation(dragged);
    if (*handle_ != HandleRole::rotation) showDimensions(dragged);
}

void CanvasInteraction::showDimensions(const AnyAnnotation& record) {
    constexpr double snapThreshold = 1;
    constexpr double gap = 18;
    const QRectF bounds = record.bounds();
    const bool isSnapped = DrawingConstraintService::isCommonSize(bounds.width(), snapThreshold) ||
                           DrawingConstraintService::isCommonSize(bounds.height(), snapThreshold);
    const QPointF below = viewport_.toView(QPointF(bounds.center().x(), bounds.bottom()));
    dimensionLabel_ =
        DimensionLabel{QString::asprintf("%.0f × %.0f", bounds.width(), bounds.height()),
                       below + QPointF(0, gap), isSnapped};
}

void CanvasInteraction::release(const PointerEvent& event) {
    switch (std::exchange(phase_, Phase::none)) {
        case Phase::handle: {
            annotations().set_isResizingViaControlPoint(false);
            dimensionLabel_.reset();
            // One step of undo from what the record was before the drag.
            const auto after = annotations().selectedAnnotation();
            if (!after || !handleStart_) break;
            annotations().applyAnnotation(*handleStart_);
            annotations().updateAnnotation(*after);
            break;
        }
        case Phase::dragging:
            annotations().snapToGuides();
            annotations().endDrag();
            break;
        case Phase::selecting:
            annotations().finishSelectionRect();
            break;
        case Phase::drawing:
            finishDrawing();
            break;
        case Phase::erasing:
            annotations().set_isErasing(false);
            annotations().set_eraserPosition(std::nullopt);
            break;
        case Phase::none:
        case Phase::panning:
        case Phase::pendingText:
            break;
    }
    annotations().set_isMultiSelectMode(false);
    editor_.synchroniseAnnotations();
    hover(event);
}

void CanvasInteraction::finishDrawing() {
    const auto start = annotations().drawingStartPoint(), end = annotations().drawingEndPoint();
    if (annotations().currentTool() == AnnotationTool::text && start && end &&
        distance(*start, *end) < textClickTravel) {
        annotations().addTextAnnotation(*start);
    } else {
        annotations().finishDrawing();
    }
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
    if (hit->as<NumberAnnotation>()) annotations().startNumberEditing(*hit);
    if (!hit->as<TextAnnotation>()) return std::nullopt;
    annotations().selectAnnotation(hit);
    return hit->id();
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
        return phase_ == Phase::panning ? Qt::ClosedHandCursor : Qt::OpenHandCursor;
    }
    if (phase_ == Phase::dragging) return Qt::ClosedHandCursor;
    if (isHoveringInactiveAnnotation_) return Qt::OpenHandCursor;
    return annotationToolInfo(annotations().currentTool()).pointer;
}

}  // namespace kestrio
