#include "app/program/CountdownIcon.h"

#include "imaging/text/SystemFont.h"
#include "ui/Palette.h"

#include <QPainter>
#include <QPixmap>

namespace kestrio {

namespace {

constexpr int sides[] = {22, 32, 64};  // pixels, as trays ask for them
// Of the side.
constexpr double cornerShare = 0.22, numberShare = 0.62;

QPixmap tile(int seconds, int side) {
    QPixmap made(side, side);
    made.fill(Qt::transparent);
    QPainter painter(&made);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Palette::light().accent);
    painter.drawRoundedRect(made.rect(), side * cornerShare, side * cornerShare);
    painter.setPen(Palette::light().accentText);
    painter.setFont(systemFont(side * numberShare, QFont::Bold));
    painter.drawText(made.rect(), Qt::AlignCenter, QString::number(seconds));
    return made;
}

}  // namespace

QIcon countdownIcon(int seconds) {
    QIcon icon;
    for (const int side : sides)
        icon.addPixmap(tile(seconds, side));
    return icon;
}

}  // namespace kestrio
