#include "library/pins/PinnedScreenshotWindow.h"

#include "core/Localisation.h"
#include "imaging/filters/Resample.h"
#include "library/pins/PinGeometry.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace kestrio {

namespace {

constexpr double cornerRadius = 8;
constexpr double buttonSize = 24;
constexpr double buttonMargin = 8;
// How close to an edge the pointer resizes, in points.
constexpr double edgeReach = 7;
constexpr int fadeMilliseconds = 200;

QSurfaceFormat formatWithAlpha() {
    QSurfaceFormat format;
    format.setAlphaBufferSize(8);
    return format;
}

Qt::CursorShape pointerFor(Qt::Edges edges) {
    const bool isRising =
        edges == (Qt::TopEdge | Qt::RightEdge) || edges == (Qt::BottomEdge | Qt::LeftEdge);
    const bool isFalling =
        edges == (Qt::TopEdge | Qt::LeftEdge) || edges == (Qt::BottomEdge | Qt::RightEdge);
    if (isRising) return Qt::SizeBDiagCursor;
    if (isFalling) return Qt::SizeFDiagCursor;
    if (edges & (Qt::LeftEdge | Qt::RightEdge)) return Qt::SizeHorCursor;
    if (edges & (Qt::TopEdge | Qt::BottomEdge)) return Qt::SizeVerCursor;
    return Qt::ArrowCursor;
}

}  // namespace

PinnedScreenshotWindow::PinnedScreenshotWindow(const PinnedScreenshotModel& model,
                                               std::shared_ptr<FloatingWindows> floating)
    : model_(model),
      floating_(std::move(floating)),
      aspectRatio_(pinAspectRatio(model.image.pointSize())) {
    if (floating_->supportsTranslucency()) setFormat(formatWithAlpha());
    setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setTitle(Kestrio::tr("Pinned Screenshot"));
    setMinimumSize(QSize(int(smallestPin), int(smallestPin)));
    setMaximumSize(QSize(int(largestPin), int(largestPin)));
    setOpacity(model.opacity);
    setGeometry(QRectF(model.position, model.size).toRect());
    buttonFade_.setDuration(fadeMilliseconds);
    buttonFade_.setStartValue(0.0);
    buttonFade_.setEndValue(1.0);
    connect(&buttonFade_, &QVariantAnimation::valueChanged, this,
            [this] { update(closeButton().toAlignedRect().adjusted(-4, -4, 4, 4)); });
}

void PinnedScreenshotWindow::open() {
    floating_->prepare(*this);
    show();
}

QRectF PinnedScreenshotWindow::closeButton() const {
    return {width() - buttonMargin - buttonSize, buttonMargin, buttonSize, buttonSize};
}

const QImage& PinnedScreenshotWindow::scaledPicture() {
    const QSize pixels = size() * devicePixelRatio();
    if (scaled_.size() != pixels) {
        // While the size is being dragged, quick matters more than sharp.
        const QImage& bitmap = model_.image.bitmap();
        scaled_ = bitmap.size() == pixels ? bitmap
                  : drag_ ? bitmap.scaled(pixels, Qt::IgnoreAspectRatio, Qt::FastTransformation)
                          : scaledTo(bitmap, pixels);
        scaled_.setDevicePixelRatio(devicePixelRatio());
    }
    return scaled_;
}

void PinnedScreenshotWindow::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setClipRegion(event->region());
    painter.setRenderHint(QPainter::Antialiasing);
    if (format().hasAlpha()) {
        painter.setCompositionMode(QPainter::CompositionMode_Clear);
        painter.fillRect(QRect(QPoint(), size()), Qt::black);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        QBrush brush(scaledPicture());
        brush.setTransform(QTransform::fromScale(1 / devicePixelRatio(), 1 / devicePixelRatio()));
        painter.setPen(Qt::NoPen);
        painter.setBrush(brush);
        painter.drawRoundedRect(QRect(QPoint(), size()), cornerRadius, cornerRadius);
    } else {
        // Clear parts of a picture need a ground where nothing shines through.
        if (!model_.image.isOpaque()) painter.fillRect(QRect(QPoint(), size()), Qt::white);
        painter.drawImage(0, 0, scaledPicture());
    }
    paintButton(painter);
}

void PinnedScreenshotWindow::paintButton(QPainter& painter) const {
    const double shown = isHovering_ || buttonFade_.state() == QAbstractAnimation::Running
                             ? buttonFade_.currentValue().toDouble()
                             : 0.0;
    if (shown <= 0) return;
    const QRectF place = closeButton();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgbF(0, 0, 0, 0.3F * float(shown)));
    painter.drawEllipse(place.adjusted(-2, -1, 2, 3));
    painter.setBrush(QColor::fromRgbF(0.16F, 0.16F, 0.18F, 0.75F * float(shown)));
    painter.drawEllipse(place);
    painter.setPen(QPen(QColor::fromRgbF(1, 1, 1, float(shown)), 2, Qt::SolidLine, Qt::RoundCap));
    const QRectF cross = place.adjusted(8, 8, -8, -8);
    painter.drawLine(cross.topLeft(), cross.bottomRight());
    painter.drawLine(cross.topRight(), cross.bottomLeft());
}

void PinnedScreenshotWindow::resizeEvent(QResizeEvent* event) {
    QRasterWindow::resizeEvent(event);
    if (!format().hasAlpha()) floating_->roundCorners(*this, cornerRadius);
}

Qt::Edges PinnedScreenshotWindow::edgesAt(QPointF point) const {
    Qt::Edges edges;
    if (point.x() < edgeReach) edges |= Qt::LeftEdge;
    if (point.x() >= width() - edgeReach) edges |= Qt::RightEdge;
    if (point.y() < edgeReach) edges |= Qt::TopEdge;
    if (point.y() >= height() - edgeReach) edges |= Qt::BottomEdge;
    return edges;
}

void PinnedScreenshotWindow::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const bool isOnButton = closeButton().contains(event->position());
    drag_ = Drag{event->globalPosition(), geometry(),
                 isOnButton ? Qt::Edges() : edgesAt(event->position()), isOnButton};
    requestActivate();
}

void PinnedScreenshotWindow::mouseMoveEvent(QMouseEvent* event) {
    setHovering(true);
    if (!drag_) {
        showPointerFor(event->position());
    } else if (drag_->edges) {
        resizeTo(*drag_, event->globalPosition());
    } else if (!drag_->isOnButton) {
        setPosition(
            (QPointF(drag_->frame.topLeft()) + event->globalPosition() - drag_->start).toPoint());
    }
}

void PinnedScreenshotWindow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !drag_) return;
    const Drag ended = *drag_;
    drag_.reset();
    if (ended.isOnButton) {
        if (closeButton().contains(event->position())) Q_EMIT closeRequested();
    } else if (ended.edges) {
        scaled_ = {};
        update();
    }
}

void PinnedScreenshotWindow::resizeTo(const Drag& drag, QPointF pointer) {
    const QPointF moved = pointer - drag.start;
    QSizeF asked = drag.frame.size();
    const bool isSideways = drag.edges & (Qt::LeftEdge | Qt::RightEdge);
    if (drag.edges & Qt::RightEdge) asked.rwidth() += moved.x();
    if (drag.edges & Qt::LeftEdge) asked.rwidth() -= moved.x();
    if (drag.edges & Qt::BottomEdge) asked.rheight() += moved.y();
    if (drag.edges & Qt::TopEdge) asked.rheight() -= moved.y();
    if (!isSideways) asked.setWidth(asked.height() * aspectRatio_);
    const QSize taken = resizedPin(asked, aspectRatio_).toSize();
    QRect frame(drag.frame.topLeft(), taken);
    // The edges that are not dragged stay where they are.
    if (drag.edges & Qt::LeftEdge) frame.moveRight(drag.frame.right());
    if (drag.edges & Qt::TopEdge) frame.moveBottom(drag.frame.bottom());
    setGeometry(frame);
}

void PinnedScreenshotWindow::wheelEvent(QWheelEvent* event) {
    constexpr double notch = 120;
    constexpr double growthPerNotch = 1.08;
    const double factor = std::pow(growthPerNotch, event->angleDelta().y() / notch);
    QRectF frame(QPointF(), resizedPin(QSizeF(size()) * factor, aspectRatio_).toSize());
    frame.moveCenter(QRectF(geometry()).center());
    setGeometry(frame.toRect());
}

void PinnedScreenshotWindow::showPointerFor(QPointF point) {
    setCursor(closeButton().contains(point) ? Qt::PointingHandCursor : pointerFor(edgesAt(point)));
}

void PinnedScreenshotWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape || event->matches(QKeySequence::Close)) {
        Q_EMIT closeRequested();
    } else if (event->matches(QKeySequence::Copy)) {
        Q_EMIT copyRequested();
    } else {
        QRasterWindow::keyPressEvent(event);
    }
}

bool PinnedScreenshotWindow::event(QEvent* event) {
    if (event->type() == QEvent::Enter) setHovering(true);
    if (event->type() == QEvent::Leave) setHovering(false);
    if (event->type() == QEvent::Close) {
        // Its owner hides and deletes it.
        event->ignore();
        Q_EMIT closeRequested();
        return true;
    }
    return QRasterWindow::event(event);
}

void PinnedScreenshotWindow::setHovering(bool isHovering) {
    if (isHovering_ == isHovering) return;
    isHovering_ = isHovering;
    buttonFade_.setDirection(isHovering ? QAbstractAnimation::Forward
                                        : QAbstractAnimation::Backward);
    buttonFade_.start();
}

}  // namespace kestrio
