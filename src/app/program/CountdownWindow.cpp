#include "app/program/CountdownWindow.h"

#include "core/Localisation.h"
#include "imaging/text/SystemFont.h"
#include "ui/Palette.h"

#include <QPainter>

namespace kestrio {

namespace {

constexpr int side = 96;
constexpr double numberSize = 40;
constexpr double hintSize = 11;
// Of the disc's side: where the words stand below the number.
constexpr double hintTop = 0.62;

}  // namespace

CountdownWindow::CountdownWindow(FloatingWindows& floating) {
    const bool isTranslucent = floating.supportsTranslucency();
    if (isTranslucent) {
        QSurfaceFormat translucent;
        translucent.setAlphaBufferSize(8);
        setFormat(translucent);
    }
    setFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
             Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);
    setTitle(QStringLiteral("Kestrio Countdown"));
    resize(fittingSize());
    if (!isTranslucent) floating.roundCorners(*this, side / 2.0);
    floating.prepare(*this);
}

QSize CountdownWindow::fittingSize() {
    return {side, side};
}

void CountdownWindow::setSeconds(int seconds) {
    seconds_ = seconds;
    update();
}

void CountdownWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF whole(QPointF(), size());
    const QColor ground = Palette::dark().overlayGround;
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(whole, format().hasAlpha() ? QColor(Qt::transparent) : ground);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawEllipse(whole);
    painter.setPen(Palette::dark().overlayText);
    painter.setFont(systemFont(numberSize, QFont::DemiBold));
    painter.drawText(whole.adjusted(0, 0, 0, -whole.height() * 0.18), Qt::AlignCenter,
                     QString::number(seconds_));
    painter.setPen(Palette::dark().secondaryText);
    painter.setFont(systemFont(hintSize, QFont::Normal));
    painter.drawText(whole.adjusted(0, whole.height() * hintTop, 0, 0),
                     Qt::AlignHCenter | Qt::AlignTop, Kestrio::tr("Esc cancels"));
}

}  // namespace kestrio
