#include "editor/views/CanvasItem.h"

#include "editor/canvas/BlurPlaceholder.h"
#include "editor/canvas/CanvasDecorations.h"
#include "editor/views/EditorController.h"
#include "imaging/text/SystemFont.h"

#include <QCursor>
#include <QQuickWindow>
#include <cmath>

namespace kestrio {

namespace {

constexpr double canvasMargin = 28;  // points of the view around the canvas at zoom 1
constexpr std::chrono::milliseconds restAfterMoving{100};

PointerEvent pointerEvent(const QSinglePointEvent& event) {
    return {event.position(), event.modifiers()};
}

}  // namespace

CanvasItem::CanvasItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAcceptedMouseButtons(Qt::LeftButton | Qt::MiddleButton | Qt::RightButton);
    setAcceptHoverEvents(true);
    setClip(true);
    setOpaquePainting(true);  // copied over, not blended
    rest_.setSingleShot(true);
    rest_.setInterval(restAfterMoving);
    connect(&rest_, &QTimer::timeout, this, [this] {
        if (interaction_ && isPreviewScaled()) invalidate();
    });
    connect(&layer_, &AnnotationLayer::redrawn, this, &CanvasItem::invalidate);
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
    connect(preview_.get(), &PreviewRenderer::previewChanged, this, &CanvasItem::invalidate);
    using Editor = EditorViewModel;
    for (const auto signal : {&Editor::canvasStateChanged, &Editor::screenshotChanged})
        connect(&editor(), signal, this, &CanvasItem::refreshViewport);
    connect(&editor().styleModel(), &StyleModel::styleChanged, this, &CanvasItem::refreshViewport);
    connect(&editor().cropSession(), &CropSession::isCropModeChanged, this,
            &CanvasItem::refreshViewport);
    using Session = AnnotationSession;
    for (const auto signal : {&Session::annotationsChanged, &Session::isAnnotationModeChanged})
        connect(&editor().annotationSession(), signal, this, &CanvasItem::polish);
    AnnotationViewModel& annotations = editor().annotationVM();
    using Annotations = AnnotationViewModel;
    for (const auto signal :
         {&Annotations::annotationsChanged, &Annotations::annotationsVisibleChanged,
          &Annotations::gestureChanged, &Annotations::selectedAnnotationChanged,
          &Annotations::selectedAnnotationsChanged, &Annotations::cursorPositionChanged,
          &Annotations::currentToolChanged, &Annotations::toolSettingsChanged}) {
        connect(&annotations, signal, this, &CanvasItem::polish);
    }
    connect(&annotations, &Annotations::currentToolChanged, this, &CanvasItem::refreshCursor);
    connect(&annotations.numberEditing(), &NumberEditing::numberEditingStateChanged, this,
            &CanvasItem::viewChanged);
    connect(&annotations, &Annotations::newlyCreatedTextAnnotationIdChanged, this,
            [this, &annotations] {
                const auto id = annotations.newlyCreatedTextAnnotationId();
                if (!id) return;
                annotations.set_newlyCreatedTextAnnotationId(std::nullopt);
                annotations.textEditing().begin(*id);
            });
    connect(&annotations, &Annotations::annotationsChanged, this, &CanvasItem::textEditingChanged);
    const TextEditing& typing = annotations.textEditing();
    connect(&typing, &TextEditing::editedTextIdChanged, this, &CanvasItem::textEditingChanged);
    connect(&typing, &TextEditing::editedTextIdChanged, this, &CanvasItem::polish);
}

double CanvasItem::pixelRatio() const {
    return window() ? window()->effectiveDevicePixelRatio() : 1.0;
}

void CanvasItem::refreshViewport() {
    if (!interaction_) return;
    const QTransform before = interaction_->viewport().canvasToView();
    // A crop frame is drawn on the upright picture as a whole.
    const ImageTransform transform =
        editor().isCropMode() ? ImageTransform() : editor().canvasState().transform;
    interaction_->setViewport({editor().layout(), transform, size(), canvasMargin, pixelRatio()});
    const bool isElsewhere = interaction_->viewport().canvasToView() != before;
    if (isElsewhere) rest_.start();
    preview_->setScale(interaction_->viewport().scale() * pixelRatio());
    Q_EMIT viewChanged();
    if (isEditingText()) Q_EMIT textEditingChanged();
    refreshCursor();
    // A style that changes shows with the preview that follows.
    isElsewhere ? invalidate() : polish();
}

void CanvasItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickPaintedItem::geometryChange(newGeometry, oldGeometry);
    refreshViewport();
    invalidate();
}

void CanvasItem::invalidate() {
    isAllStale_ = true;
    polish();
}

/// From pixels of the unturned canvas to the view's.
QTransform CanvasItem::pixelsOfCanvasToView() const {
    const CanvasViewport& viewport = interaction_->viewport();
    const QPointF corner = viewport.canvasToView(QPointF()) * pixelRatio();
    return QTransform::fromTranslate(std::round(corner.x()), std::round(corner.y()))
        .rotate(viewport.rotation());
}

/// Gives what the change takes, in pixels of the unturned canvas.
QRect CanvasItem::showAnnotations() {
    const AnnotationViewModel& annotations = editor().annotationVM();
    std::vector<AnyAnnotation> shown;
    if (annotations.annotationsVisible() && interaction_->viewport().showsScreenshot()) {
        shown = editor().liveAnnotations();
        // A text that is typed is shown by its editor.
        std::erase_if(shown, [&](const auto& each) {
            return each.id() == annotations.textEditing().editedTextId();
        });
        if (const auto drawn = annotations.recordBeingDrawn()) shown.push_back(*drawn);
    }
    const QRectF view(QPointF(), size() * pixelRatio());
    const QRect visible = pixelsOfCanvasToView().inverted().mapRect(view).toAlignedRect();
    return layer_.show(std::move(shown), visible, annotationMapping());
}

/// From the screenshot's points to pixels of the unturned canvas. The screenshot that is seen is
/// the preview's: while a style changes, marks move together with it.
AnnotationMapping CanvasItem::annotationMapping() const {
    const CanvasViewport& viewport = interaction_->viewport();
    if (!viewport.showsScreenshot()) return {};
    const QRectF content = preview_->shownContent().value_or(viewport.contentRect());
    const double scale = viewport.scale() * pixelRatio();
    const double pixels = content.width() / viewport.imageSize().width() * scale;
    return {
        content.topLeft() * scale, {pixels, pixels}, pixels, editor().screenshot().pixelDensity()};
}

QRectF CanvasItem::placeholderRect(const BlurAnnotation& blur) const {
    const CanvasViewport& viewport = interaction_->viewport();
    return viewport.imageToCanvas(blur.bounds.normalized()) & viewport.contentRect();
}

/// What decorations and placeholders take, in points of the item.
QRectF CanvasItem::overlayBounds() const {
    QRectF bounds = isEditingText() ? QRectF() : decorationBounds(editor(), *interaction_);
    for (const BlurAnnotation& blur : preview_->pendingBlurs())
        bounds |= interaction_->viewport().canvasToView().mapRect(placeholderRect(blur));
    return bounds;
}

// All that changed since the last frame is found out once for the next one.
void CanvasItem::updatePolish() {
    if (!interaction_ || interaction_->viewport().isEmpty()) {
        update();
        return;
    }
    const QRect changed = showAnnotations();
    const QRectF overlay = overlayBounds();
    const QRectF lastOverlay = std::exchange(lastOverlay_, overlay);
    if (std::exchange(isAllStale_, false)) {
        update();
        return;
    }
    const QRectF inPixels = pixelsOfCanvasToView().mapRect(QRectF(changed));
    QRectF stale = overlay | lastOverlay;
    if (!changed.isEmpty()) {
        stale |= QRectF(inPixels.topLeft() / pixelRatio(), inPixels.size() / pixelRatio());
    }
    const QRect area = (stale & boundingRect()).toAlignedRect();
    // An empty rectangle would mean the whole.
    if (!area.isEmpty()) update(area.adjusted(-1, -1, 1, 1));
}

QRectF CanvasItem::imageRect() const {
    if (!interaction_ || interaction_->viewport().isEmpty()) return {};
    const CanvasViewport& viewport = interaction_->viewport();
    const QRectF content = viewport.contentRect();
    return {viewport.canvasToView(content.topLeft()), viewport.canvasToView(content.bottomRight())};
}

QPointF CanvasItem::imageCorner() const {
    if (!interaction_) return {};
    const CanvasViewport& viewport = interaction_->viewport();
    return viewport.canvasToView(viewport.contentRect().topLeft());
}

QSizeF CanvasItem::imageExtent() const {
    if (!interaction_ || !interaction_->viewport().showsScreenshot()) return {0, 0};
    const CanvasViewport& viewport = interaction_->viewport();
    return viewport.contentRect().size() * viewport.scale();
}

double CanvasItem::imageTurn() const {
    return interaction_ ? interaction_->viewport().rotation() : 0;
}

void CanvasItem::paint(QPainter* painter) {
    if (!interaction_ || interaction_->viewport().isEmpty()) return;
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->save();
    // Pictures go over pixel by pixel.
    const double ratio = pixelRatio();
    painter->scale(1 / ratio, 1 / ratio);
    painter->setTransform(pixelsOfCanvasToView(), true);
    paintPreview(*painter);
    paintPlaceholders(*painter);
    layer_.paint(*painter);
    painter->restore();
    if (!isEditingText()) paintDecorations(*painter, editor(), *interaction_);
}

/// Whether the preview has another number of pixels than it is shown in.
bool CanvasItem::isPreviewScaled() const {
    const QSizeF canvas = interaction_->viewport().canvasSize() * pixelRatio();
    const QSizeF difference = canvas - preview_->preview().size();
    return std::max(std::abs(difference.width()), std::abs(difference.height())) >= 1;
}

void CanvasItem::paintPreview(QPainter& painter) const {
    const QImage& preview = preview_->preview();
    const QSizeF canvas = interaction_->viewport().canvasSize() * pixelRatio();
    const bool isTransparent =
        editor().styleModel().backdrop().type == BackdropType::none || preview.hasAlphaChannel();
    if (isTransparent) paintTransparencyGrid(painter, {QPointF(), canvas});
    if (preview.isNull()) return;
    if (!isPreviewScaled()) {
        painter.drawImage(QPoint(), preview);
        return;
    }
    // Interpolation takes longer than a frame; it follows when the canvas rests.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, !rest_.isActive());
    painter.drawImage(QRectF(QPointF(), canvas), preview);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
}

void CanvasItem::paintPlaceholders(QPainter& painter) const {
    painter.save();
    painter.scale(pixelRatio(), pixelRatio());
    const double scale = interaction_->viewport().scale();
    for (const BlurAnnotation& blur : preview_->pendingBlurs()) {
        const QRectF rect = placeholderRect(blur);
        paintBlurPlaceholder(painter, blur, {rect.topLeft() * scale, rect.size() * scale});
    }
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
        if (interaction_->selectAt(event->position()))
            Q_EMIT contextMenuRequested(event->position());
        return;
    }
    interaction_->press(pointerEvent(*event));
    refreshCursor();
    polish();
}

void CanvasItem::mouseMoveEvent(QMouseEvent* event) {
    if (!interaction_) return;
    interaction_->move(pointerEvent(*event));
    refreshCursor();
    polish();
}

void CanvasItem::mouseReleaseEvent(QMouseEvent* event) {
    if (!interaction_) return;
    interaction_->release(pointerEvent(*event));
    layer_.endGesture();
    refreshCursor();
    polish();
}

void CanvasItem::mouseDoubleClickEvent(QMouseEvent* event) {
    if (!interaction_) return;
    const auto text = interaction_->doubleClick(pointerEvent(*event));
    if (text) editor().annotationVM().textEditing().begin(*text);
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
    return interaction_->viewport().toImage(position);
}

bool CanvasItem::isEditingText() const {
    return editedRecord() != nullptr;
}

const TextAnnotation* CanvasItem::editedRecord() const {
    if (!controller_) return nullptr;
    const AnnotationViewModel& annotations = editor().annotationVM();
    const auto& id = annotations.textEditing().editedTextId();
    const AnyAnnotation* record = id ? annotations.annotation(*id) : nullptr;
    return record ? record->as<TextAnnotation>() : nullptr;
}

QRectF CanvasItem::textRect() const {
    const TextAnnotation* text = editedRecord();
    if (!text) return {};
    const CanvasViewport& viewport = interaction_->viewport();
    QRectF rect(QPointF(), text->bounds.size() * viewport.imageScale());
    rect.moveCenter(viewport.toView(text->bounds.center()));
    return rect;
}

double CanvasItem::textScale() const {
    return isEditingText() ? interaction_->viewport().imageScale() : 1;
}

double CanvasItem::textRotation() const {
    const TextAnnotation* text = editedRecord();
    return text ? text->rotation + interaction_->viewport().rotation() : 0;
}

QFont CanvasItem::textFont() const {
    const TextAnnotation* text = editedRecord();
    if (!text) return {};
    return writingFont(text->fontFamily.value_or(QString()), text->fontSize,
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

void CanvasItem::setEditedText(const QString& text) {
    if (!isEditingText()) return;
    editor().annotationVM().textEditing().setText(text);
    editor().synchroniseAnnotations();
}

void CanvasItem::endTextEditing() {
    if (!isEditingText()) return;
    editor().annotationVM().textEditing().end();
    editor().synchroniseAnnotations();
}

QRectF CanvasItem::numberEditorRect() const {
    if (!controller_) return {};
    const auto& state = editor().annotationVM().numberEditing().numberEditingState();
    const AnyAnnotation* record =
        state.editingAnnotationId ? editor().annotationVM().annotation(*state.editingAnnotationId)
                                  : nullptr;
    if (!state.isEditing || !record) return {};
    QRectF rect(0, 0, 72, 30);
    rect.moveCenter(interaction_->viewport().toView(record->bounds().center()));
    return rect;
}

}  // namespace kestrio
