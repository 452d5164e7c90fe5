#include "editor/views/CanvasItem.h"

#include "annotation/painting/AnnotationPainter.h"
#include "editor/canvas/CanvasDecorations.h"
#include "editor/views/EditorController.h"
#include "imaging/text/SystemFont.h"

#include <QCursor>
#include <QQuickWindow>

namespace kestrio {

namespace {

constexpr double canvasMargin = 28;  // points of the view around the canvas at zoom 1

PointerEvent pointerEvent(const QSinglePointEvent& event) {
    return {event.position(), event.modifiers()};
}

}  // namespace

CanvasItem::CanvasItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAcceptedMouseButtons(Qt::LeftButton | Qt::MiddleButton | Qt::RightButton);
    setAcceptHoverEvents(true);
    setClip(true);
}

void CanvasItem::setController(EditorController* controller) {
    if (controller_ == controller) return;
    controller_ = controller;
    interaction_.reset();
    preview_.reset();
    if (controller_) {
        interaction_ = std::make_unique<CanvasInteraction>(editor());
        preview_ = std::make_unique<PreviewRenderer>(editor(), controller_->imageRenderer(),
                                                     controller_->watermarkService());
        connectToEditor();
        refreshViewport();
    }
    Q_EMIT controllerChanged();
}

EditorViewModel& CanvasItem::editor() const {
    return controller_->editor();
}

void CanvasItem::connectToEditor() {
    connect(preview_.get(), &PreviewRenderer::previewChanged, this, [this] { update(); });
    using Editor = EditorViewModel;
    for (const auto signal :
         {&Editor::canvasStateChanged, &Editor::screenshotChanged, &Editor::backdropChanged,
          &Editor::frameStyleChanged, &Editor::frameScaleChanged}) {
        connect(&editor(), signal, this, &CanvasItem::refreshViewport);
    }
    connect(&editor(), &Editor::annotationsChanged, this, &CanvasItem::invalidateLayer);
    connect(&editor(), &Editor::isAnnotationModeChanged, this, &CanvasItem::invalidateLayer);
    AnnotationViewModel& annotations = editor().annotationVM();
    using Annotations = AnnotationViewModel;
    for (const auto signal :
         {&Annotations::annotationsChanged, &Annotations::annotationsVisibleChanged,
          &Annotations::drawingEndPointChanged, &Annotations::isDrawingChanged}) {
        connect(&annotations, signal, this, &CanvasItem::invalidateLayer);
    }
    for (const auto signal :
         {&Annotations::selectedAnnotationChanged, &Annotations::selectedAnnotationsChanged,
          &Annotations::selectionRectEndChanged, &Annotations::isSelectionRectActiveChanged,
          &Annotations::activeAlignmentGuidesChanged, &Annotations::cursorPositionChanged,
          &Annotations::currentToolChanged, &Annotations::toolSettingsChanged}) {
        connect(&annotations, signal, this, [this] { update(); });
    }
    connect(&annotations, &Annotations::currentToolChanged, this, &CanvasItem::refreshCursor);
    connect(&annotations, &Annotations::numberEditingStateChanged, this, &CanvasItem::viewChanged);
    connect(&annotations, &Annotations::newlyCreatedTextAnnotationIdChanged, this,
            [this, &annotations] {
                const auto id = annotations.newlyCreatedTextAnnotationId();
                if (!id) return;
                annotations.set_newlyCreatedTextAnnotationId(std::nullopt);
                beginTextEditing(*id);
            });
}

double CanvasItem::pixelRatio() const {
    return window() ? window()->effectiveDevicePixelRatio() : 1.0;
}

void CanvasItem::refreshViewport() {
    if (!interaction_) return;
    interaction_->setViewport(
        {editor().layout(), editor().canvasState().transform, size(), canvasMargin});
    preview_->setScale(interaction_->viewport().scale() * pixelRatio());
    Q_EMIT viewChanged();
    if (isEditingText()) Q_EMIT textEditingChanged();
    refreshCursor();
    invalidateLayer();
}

void CanvasItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickPaintedItem::geometryChange(newGeometry, oldGeometry);
    refreshViewport();
}

void CanvasItem::invalidateLayer() {
    isLayerStale_ = true;
    update();
}

QRectF CanvasItem::imageRect() const {
    if (!interaction_ || interaction_->viewport().isEmpty()) return {};
    const CanvasViewport& viewport = interaction_->viewport();
    const QRectF content = viewport.contentRect();
    return {viewport.toView(content.topLeft()), viewport.toView(content.bottomRight())};
}

void CanvasItem::paint(QPainter* painter) {
    if (!interaction_ || interaction_->viewport().isEmpty()) return;
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    paintPreview(*painter);
    paintAnnotationLayer(*painter);
    if (!isEditingText()) paintDecorations(*painter, editor(), *interaction_);
}

void CanvasItem::paintPreview(QPainter& painter) const {
    const CanvasViewport& viewport = interaction_->viewport();
    const QRectF canvas = viewport.canvasRect();
    painter.save();
    painter.translate(canvas.center());
    painter.rotate(viewport.rotation());
    painter.translate(-canvas.center());
    const bool isTransparent =
        editor().backdrop().type == BackdropType::none || preview_->preview().hasAlphaChannel();
    if (isTransparent) paintTransparencyGrid(painter, canvas);
    if (!preview_->preview().isNull()) painter.drawImage(canvas, preview_->preview());
    painter.restore();
}

// The annotations are painted in the view's pixels. On a turned canvas they are painted upright
// first, since each painter works in an upright frame.
void CanvasItem::paintAnnotationLayer(QPainter& painter) {
    const CanvasViewport& viewport = interaction_->viewport();
    const AnnotationViewModel& annotations = editor().annotationVM();
    if (!annotations.annotationsVisible()) return;
    const double ratio = pixelRatio();
    const QRectF canvas = viewport.canvasRect();
    const bool isTurned = viewport.rotation() != 0;
    const QRectF area = isTurned ? canvas : QRectF(QPointF(), size());
    if (isLayerStale_) {
        const QSize pixels = (area.size() * ratio).toSize().boundedTo({8192, 8192});
        if (layer_.size() != pixels) {
            layer_ = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
        }
        layer_.fill(Qt::transparent);
        AnnotationMapping mapping = viewport.mapping(ratio);
        mapping.origin = (canvas.topLeft() - area.topLeft()) * ratio;
        std::vector<AnyAnnotation> shown = editor().liveAnnotations();
        std::erase_if(shown, [&](const auto& each) { return each.id() == editedTextId_; });
        if (const auto drawn = annotations.recordBeingDrawn()) shown.push_back(*drawn);
        paintAnnotations(layer_, shown, mapping);
        isLayerStale_ = false;
    }
    painter.save();
    painter.translate(canvas.center());
    painter.rotate(viewport.rotation());
    painter.translate(-canvas.center());
    painter.drawImage(area, layer_);
    painter.restore();
}

void CanvasItem::refreshCursor() {
    if (interaction_) setCursor(interaction_->cursor());
}

void CanvasItem::mousePressEvent(QMouseEvent* event) {
    if (!interaction_ || editor().isCropMode()) {
        event->ignore();
        return;
    }
    forceActiveFocus(Qt::MouseFocusReason);
    if (event->button() == Qt::RightButton) {
        if (interaction_->selectAt(event->position())) Q_EMIT contextMenuRequested(event->position());
        return;
    }
    interaction_->press(pointerEvent(*event));
    refreshCursor();
    update();
}

void CanvasItem::mouseMoveEvent(QMouseEvent* event) {
    if (!interaction_) return;
    interaction_->move(pointerEvent(*event));
    refreshCursor();
    update();
}

void CanvasItem::mouseReleaseEvent(QMouseEvent* event) {
    if (!interaction_) return;
    interaction_->release(pointerEvent(*event));
    refreshCursor();
    update();
}

void CanvasItem::mouseDoubleClickEvent(QMouseEvent* event) {
    if (!interaction_) return;
    const auto text = interaction_->doubleClick(pointerEvent(*event));
    if (text) beginTextEditing(*text);
}

void CanvasItem::hoverMoveEvent(QHoverEvent* event) {
    if (!interaction_) return;
    interaction_->hover({event->position(), event->modifiers()});
    refreshCursor();
}

void CanvasItem::hoverLeaveEvent(QHoverEvent*) {
    if (interaction_) interaction_->leave();
}

void CanvasItem::wheelEvent(QWheelEvent* event) {
    if (!interaction_) return;
    constexpr double pixelsForNotch = 60;  // a notch is 120 eighths of a degree
    const QPointF pixels = event->pixelDelta().isNull()
                               ? QPointF(event->angleDelta()) * (pixelsForNotch / 120)
                               : QPointF(event->pixelDelta());
    interaction_->wheel(pointerEvent(*event), pixels);
    event->accept();
}

QPointF CanvasItem::imagePoint(const QPointF& position) const {
    if (!interaction_ || interaction_->viewport().isEmpty()) return {-1, -1};
    const CanvasViewport& viewport = interaction_->viewport();
    return viewport.canvasToImage(viewport.toCanvas(position));
}

void CanvasItem::beginTextEditing(const QUuid& id) {
    editedTextId_ = id;
    editor().annotationVM().set_isTextEditing(true);
    invalidateLayer();
    Q_EMIT textEditingChanged();
}

const TextAnnotation* CanvasItem::editedRecord() const {
    if (!controller_ || !editedTextId_) return nullptr;
    const AnyAnnotation* record = editor().annotationVM().annotation(*editedTextId_);
    return record ? record->as<TextAnnotation>() : nullptr;
}

QRectF CanvasItem::textRect() const {
    const TextAnnotation* text = editedRecord();
    if (!text) return {};
    const CanvasViewport& viewport = interaction_->viewport();
    QRectF rect(QPointF(), text->bounds.size() * viewport.scale());
    rect.moveCenter(viewport.toView(text->bounds.center()));
    return rect;
}

double CanvasItem::textRotation() const {
    const TextAnnotation* text = editedRecord();
    return text ? text->rotation + interaction_->viewport().rotation() : 0;
}

QFont CanvasItem::textFont() const {
    const TextAnnotation* text = editedRecord();
    if (!text) return {};
    return writingFont(text->fontFamily.value_or(QString()),
                       text->fontSize * interaction_->viewport().scale(),
                       fontWeight(text->fontWeight));
}

QColor CanvasItem::textColor() const {
    const TextAnnotation* text = editedRecord();
    return text ? text->color.toQColor() : QColor();
}

QString CanvasItem::editedText() const {
    const TextAnnotation* text = editedRecord();
    return text ? text->text : QString();
}

// A text left empty would be invisible for ever.
void CanvasItem::commitText(const QString& text) {
    const auto id = std::exchange(editedTextId_, std::nullopt);
    if (!id || !controller_) return;
    AnnotationViewModel& annotations = editor().annotationVM();
    annotations.set_isTextEditing(false);
    if (const AnyAnnotation* record = annotations.annotation(*id)) {
        AnyAnnotation changed = *record;
        changed.as<TextAnnotation>()->text = text;
        if (text.trimmed().isEmpty()) {
            annotations.deleteAnnotation(*id);
        } else {
            annotations.updateAnnotation(changed);
        }
    }
    editor().synchroniseAnnotations();
    invalidateLayer();
    Q_EMIT textEditingChanged();
}

QRectF CanvasItem::numberEditorRect() const {
    if (!controller_) return {};
    const auto& state = editor().annotationVM().numberEditingState();
    const AnyAnnotation* record =
        state.editingAnnotationId ? editor().annotationVM().annotation(*state.editingAnnotationId)
                                  : nullptr;
    if (!state.isEditing || !record) return {};
    QRectF rect(0, 0, 72, 30);
    rect.moveCenter(interaction_->viewport().toView(record->bounds().center()));
    return rect;
}

}  // namespace kestrio
