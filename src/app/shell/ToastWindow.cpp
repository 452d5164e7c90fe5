#include "app/shell/ToastWindow.h"

#include "imaging/text/SystemFont.h"
#include "ui/Palette.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QTimer>

namespace kestrio {

namespace {

constexpr double fontSize = 13;
constexpr double sidePadding = 18;
constexpr double toastHeight = 40;
constexpr double tickSize = 16;
constexpr double tickGap = 8;
constexpr double largestText = 560;
constexpr int fadeInMilliseconds = 180;
constexpr int fadeOutMilliseconds = 250;

void paintTick(QPainter& painter, const QRectF& place) {
    QPainterPath tick;
    tick.moveTo(place.left() + place.width() * 0.1, place.center().y());
    tick.lineTo(place.left() + place.width() * 0.4, place.bottom() - place.height() * 0.2);
    tick.lineTo(place.right() - place.width() * 0.08, place.top() + place.height() * 0.2);
    painter.setPen(QPen(Palette::dark().success, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(tick);
}

}  // namespace

ToastWindow::ToastWindow(const QString& text, std::shared_ptr<FloatingWindows> floating)
    : floating_(std::move(floating)) {
    text_ = QFontMetricsF(font()).elidedText(text, Qt::ElideMiddle, largestText);
    if (floating_->supportsTranslucency()) {
        QSurfaceFormat translucent;
        translucent.setAlphaBufferSize(8);
        setFormat(translucent);
    }
    setFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
             Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);
    setTitle(QStringLiteral("Kestrio Toast"));
    opacity_.setDuration(fadeInMilliseconds);
    opacity_.setStartValue(0.0);
    opacity_.setEndValue(1.0);
    connect(&opacity_, &QVariantAnimation::valueChanged, this,
            qOverload<>(&QPaintDeviceWindow::update));
}

QFont ToastWindow::font() const {
    return systemFont(fontSize, QFont::Medium);
}

QSize ToastWindow::fittingSize() const {
    const double words = QFontMetricsF(font()).horizontalAdvance(text_);
    return QSizeF(std::ceil(2 * sidePadding + tickSize + tickGap + words), toastHeight).toSize();
}

void ToastWindow::present(std::chrono::milliseconds duration) {
    if (!format().hasAlpha()) floating_->roundCorners(*this, toastHeight / 2);
    floating_->prepare(*this);
    show();
    opacity_.start();
    QTimer::singleShot(std::chrono::milliseconds(fadeInMilliseconds) + duration, this,
                       &ToastWindow::leave);
}

void ToastWindow::leave() {
    connect(&opacity_, &QVariantAnimation::finished, this, [this] {
        hide();
        deleteLater();
    });
    opacity_.setDuration(fadeOutMilliseconds);
    opacity_.setDirection(QAbstractAnimation::Backward);
    opacity_.start();
}

void ToastWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF whole(QPointF(), size());
    if (format().hasAlpha()) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(whole, Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.setOpacity(opacity_.currentValue().toDouble());
    }
    painter.setPen(Qt::NoPen);
    const QColor ground = Palette::dark().overlayGround;
    painter.setBrush(ground);
    if (format().hasAlpha()) {
        painter.drawRoundedRect(whole, toastHeight / 2, toastHeight / 2);
    } else {
        painter.fillRect(whole, ground);
    }
    paintTick(painter, {sidePadding, (whole.height() - tickSize) / 2, tickSize, tickSize});
    painter.setPen(Palette::dark().overlayText);
    painter.setFont(font());
    painter.drawText(whole.adjusted(sidePadding + tickSize + tickGap, 0, -sidePadding / 2, 0),
                     Qt::AlignVCenter | Qt::AlignLeft, text_);
}

}  // namespace kestrio
