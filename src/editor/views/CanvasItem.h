#pragma once

#include "editor/canvas/AnnotationLayer.h"
#include "editor/canvas/CanvasInteraction.h"
#include "editor/canvas/PreviewRenderer.h"
#include "editor/views/EditorController.h"

#include <QPointer>
#include <QQuickPaintedItem>
#include <QTimer>

namespace kestrio {

/// The canvas of the editor window: shows the document and forwards pointer events. Everything it
/// shows is painted by the painters that make the finished picture.
class CanvasItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(kestrio::EditorController* controller READ controller WRITE setController NOTIFY
                   controllerChanged)
    /// Of the text that is edited in place: its box in points of the item before it is turned, and
    /// what its editor needs to look like it.
    Q_PROPERTY(bool isEditingText READ isEditingText NOTIFY textEditingChanged)
    Q_PROPERTY(QRectF textRect READ textRect NOTIFY textEditingChanged)
    /// Points of the item for one of the font, whose size is in the screenshot's points.
    Q_PROPERTY(double textScale READ textScale NOTIFY textEditingChanged)
    Q_PROPERTY(double textRotation READ textRotation NOTIFY textEditingChanged)
    Q_PROPERTY(QFont textFont READ textFont NOTIFY textEditingChanged)
    Q_PROPERTY(QColor textColor READ textColor NOTIFY textEditingChanged)
    Q_PROPERTY(QString editedText READ editedText NOTIFY textEditingChanged)
    Q_PROPERTY(QRectF numberEditorRect READ numberEditorRect NOTIFY viewChanged)
    /// Where the screenshot stands, in points of the item; for the crop frame.
    Q_PROPERTY(QRectF imageRect READ imageRect NOTIFY viewChanged)
    /// For what lies on the screenshot and turns with it: its top left corner and its size before
    /// it is turned, in points of the item, and by how many degrees it is turned clockwise.
    Q_PROPERTY(QPointF imageCorner READ imageCorner NOTIFY viewChanged)
    Q_PROPERTY(QSizeF imageExtent READ imageExtent NOTIFY viewChanged)
    Q_PROPERTY(double imageTurn READ imageTurn NOTIFY viewChanged)

  public:
    explicit CanvasItem(QQuickItem* parent = nullptr);

    EditorController* controller() const { return controller_; }
    void setController(EditorController* controller);

    void paint(QPainter* painter) override;

    bool isEditingText() const;
    QRectF textRect() const;
    double textScale() const;
    double textRotation() const;
    QFont textFont() const;
    QColor textColor() const;
    QString editedText() const;
    QRectF numberEditorRect() const;
    QRectF imageRect() const;
    QPointF imageCorner() const;
    QSizeF imageExtent() const;
    double imageTurn() const;

    /// The point of the screenshot under a point of the item.
    Q_INVOKABLE QPointF imagePoint(const QPointF& position) const;
    /// What the editor of a text holds, at each change.
    Q_INVOKABLE void setEditedText(const QString& text);
    Q_INVOKABLE void endTextEditing();

    Q_SIGNAL void controllerChanged();
    Q_SIGNAL void textEditingChanged();
    Q_SIGNAL void viewChanged();
    /// The annotation at a point of the item was clicked with the right button, and is selected.
    Q_SIGNAL void contextMenuRequested(const QPointF& place);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void hoverMoveEvent(QHoverEvent* event) override;
    void hoverLeaveEvent(QHoverEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void updatePolish() override;

  private:
    EditorViewModel& editor() const;
    void connectToEditor();
    void refreshViewport();
    void refreshCursor();
    void invalidate();
    const TextAnnotation* editedRecord() const;
    double pixelRatio() const;
    QTransform pixelsOfCanvasToView() const;
    AnnotationMapping annotationMapping() const;
    QRect showAnnotations();
    QRectF overlayBounds() const;
    QRectF placeholderRect(const BlurAnnotation& blur) const;
    bool isPreviewScaled() const;
    void paintPreview(QPainter& painter) const;
    void paintPlaceholders(QPainter& painter) const;

    QPointer<EditorController> controller_;
    std::unique_ptr<CanvasInteraction> interaction_;
    std::unique_ptr<PreviewRenderer> preview_;
    AnnotationLayer layer_;
    bool isAllStale_ = true;
    /// Runs while zooming and panning go on.
    QTimer rest_;
    QRectF lastOverlay_;  ///< what decorations and placeholders took, points of the item
};

}  // namespace kestrio
