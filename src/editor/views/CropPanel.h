#pragma once

#include "editor/crop/CropGeometry.h"
#include "editor/document/EditorViewModel.h"

#include <QQmlEngine>

namespace kestrio {

/// The crop frame as its overlay shows it: in points of the view, once the view has reported where
/// the picture stands. Main thread.
class CropPanel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the editor")
    /// Where the picture stands in the view, set by the view.
    Q_PROPERTY(QRectF imageRect READ imageRect WRITE setImageRect NOTIFY frameChanged)
    Q_PROPERTY(double viewHeight READ viewHeight WRITE setViewHeight NOTIFY frameChanged)
    Q_PROPERTY(QRectF frame READ frame NOTIFY frameChanged)
    /// Where the handles stand in the view, in the order of CropHandle.
    Q_PROPERTY(QList<QPointF> handles READ handles NOTIFY frameChanged)
    /// Middle lines of the toolbar and of the label that shows the size.
    Q_PROPERTY(double toolbarY READ toolbarY NOTIFY frameChanged)
    Q_PROPERTY(double labelY READ labelY NOTIFY frameChanged)
    Q_PROPERTY(QString sizeText READ sizeText NOTIFY frameChanged)
    /// Width by height; 0 while the frame is free.
    Q_PROPERTY(double ratio READ ratio NOTIFY frameChanged)
    Q_PROPERTY(double handleSize READ handleSize CONSTANT)

  public:
    explicit CropPanel(EditorViewModel& editor, QObject* parent = nullptr);

    const QRectF& imageRect() const { return imageRect_; }
    void setImageRect(const QRectF& rect);
    double viewHeight() const { return viewHeight_; }
    void setViewHeight(double height);
    QRectF frame() const { return mapping().toView(editor_.cropSession().cropRect()); }
    QList<QPointF> handles() const;
    double toolbarY() const { return cropToolbarY(frame(), viewHeight_); }
    double labelY() const { return cropSizeLabelY(frame()); }
    QString sizeText() const;
    double ratio() const { return editor_.cropSession().cropLockedRatio().value_or(0); }
    double handleSize() const { return cropHandleSize; }

    /// A drag of a handle, or of the whole frame; ways are in points of the view, counted from
    /// where it began.
    Q_INVOKABLE void beginDrag();
    Q_INVOKABLE void dragHandle(int handle, const QPointF& way);
    Q_INVOKABLE void moveFrame(const QPointF& way);
    /// Locks the frame to its present ratio, or frees it.
    Q_INVOKABLE void toggleRatio();
    Q_INVOKABLE void lockRatio(double ratio);
    /// The whole picture again.
    Q_INVOKABLE void reset();
    Q_INVOKABLE void apply() { editor_.applyCrop(); }
    Q_INVOKABLE void cancel() { editor_.cancelCrop(); }

    Q_SIGNAL void frameChanged();

  private:
    CropMapping mapping() const { return {imageRect_, editor_.screenshot().pointSize()}; }

    EditorViewModel& editor_;
    QRectF imageRect_;
    double viewHeight_ = 0;
    QRectF dragStart_;
};

}  // namespace kestrio
