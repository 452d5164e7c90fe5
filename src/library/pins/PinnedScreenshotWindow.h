#pragma once

#include "library/pins/PinnedScreenshotModel.h"
#include "platform/FloatingWindows.h"

#include <QRasterWindow>
#include <QVariantAnimation>
#include <memory>
#include <optional>

namespace kestrio {

/// The window of one pin: the picture with rounded corners, dragged by its content, resized in its
/// ratio at its edges, with a close button while the pointer is over it. Escape closes it, Ctrl+C
/// copies the picture.
class PinnedScreenshotWindow : public QRasterWindow {
    Q_OBJECT

  public:
    PinnedScreenshotWindow(const PinnedScreenshotModel& model,
                           std::shared_ptr<FloatingWindows> floating);

    void open();

    /// The close button's place in the window, in points.
    QRectF closeButton() const;

    Q_SIGNAL void closeRequested();
    Q_SIGNAL void copyRequested();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

  private:
    /// What the pointer does since it was pressed.
    struct Drag {
        QPointF start;  ///< of the pointer, on the desktop
        QRect frame;    ///< of the window then
        Qt::Edges edges;
        bool isOnButton = false;
    };

    Qt::Edges edgesAt(QPointF point) const;
    void setHovering(bool isHovering);
    void resizeTo(const Drag& drag, QPointF pointer);
    void showPointerFor(QPointF point);
    void paintButton(QPainter& painter) const;
    const QImage& scaledPicture();

    PinnedScreenshotModel model_;
    std::shared_ptr<FloatingWindows>
        floating_;  // outlives the coordinator while it is being deleted
    double aspectRatio_;
    QImage scaled_;
    std::optional<Drag> drag_;
    bool isHovering_ = false;
    QVariantAnimation buttonFade_;
};

}  // namespace kestrio
