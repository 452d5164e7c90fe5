#include "capture/region/CaptureToolbarPainter.h"

#include "capture/overlay/OverlayLabel.h"
#include "imaging/SymbolImage.h"
#include "imaging/text/SystemFont.h"
#include "ui/Palette.h"

#include <QPainter>

namespace kestrio {

namespace {

constexpr double cornerRadius = 10;
constexpr double buttonRadius = 6;
constexpr int iconSide = 20;
constexpr double swatchRadius = 8;
constexpr double ringRadius = 10.5;
constexpr double toolTipGap = 6;
constexpr double toolTipSize = 12;

OverlayLabel toolTipLabel(const CaptureToolbar& toolbar, const ToolbarLook& look) {
    return {toolbar.buttons().at(static_cast<std::size_t>(look.hovered)).toolTip,
            systemFont(toolTipSize, QFont::Normal), 8, 4, 6};
}

void paintSwatch(QPainter& painter, QPointF center, const CodableColor& color, bool isChosen,
                 bool isHovered, const Palette& colors) {
    if (isChosen || isHovered) {
        painter.setPen(QPen(isChosen ? colors.accent : colors.pressed, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(center, ringRadius, ringRadius);
    }
    painter.setPen(QPen(colors.edge, 1));
    painter.setBrush(color.toQColor());
    painter.drawEllipse(center, swatchRadius, swatchRadius);
}

}  // namespace

const QImage& CaptureToolbarPainter::icon(const QString& name, QColor color, double scale) {
    QImage& icon = icons_[name + color.name() + QString::number(scale)];
    if (icon.isNull()) {
        icon = symbolImage(name, color, qRound(iconSide * scale));
        icon.setDevicePixelRatio(scale);
    }
    return icon;
}

void CaptureToolbarPainter::paintIcon(QPainter& painter, const ToolbarButton& button,
                                      QPointF center, QColor ink) {
    const double scale = painter.device()->devicePixelRatioF();
    painter.drawImage(center - QPointF(iconSide / 2.0, iconSide / 2.0),
                      icon(button.icon, ink, scale));
}

QRectF CaptureToolbarPainter::toolTipPlace(const CaptureToolbar& toolbar, const ToolbarLook& look) {
    const QRectF button =
        toolbar.buttons().at(static_cast<std::size_t>(look.hovered)).place.translated(look.origin);
    QRectF place(QPointF(), toolTipLabel(toolbar, look).size());
    place.moveCenter({button.center().x(), 0});
    place.moveTop(look.origin.y() + toolbar.size().height() + toolTipGap);
    if (place.bottom() > look.view.height()) place.moveBottom(look.origin.y() - toolTipGap);
    if (place.left() < 4) place.moveLeft(4);
    if (place.right() > look.view.width() - 4) place.moveRight(look.view.width() - 4);
    return place;
}

void CaptureToolbarPainter::paint(QPainter& painter, const CaptureToolbar& toolbar,
                                  const ToolbarLook& look) {
    const Palette& colors = Palette::of(look.isDark);
    const QRectF whole(look.origin, toolbar.size());
    painter.setPen(QPen(colors.hairline, 1));
    painter.setBrush(colors.surface);
    painter.drawRoundedRect(whole.adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
    for (const QLineF& separator : toolbar.separators())
        painter.drawLine(separator.translated(look.origin));
    for (std::size_t i = 0; i < toolbar.buttons().size(); ++i) {
        const ToolbarButton& button = toolbar.buttons()[i];
        const QRectF place = button.place.translated(look.origin);
        const int index = static_cast<int>(i);
        const bool isPressed = look.pressed == index;
        const bool isHovered = look.hovered == index;
        if (const auto* color = std::get_if<CodableColor>(&button.command)) {
            paintSwatch(painter, place.center(), *color, *color == look.color, isHovered, colors);
            continue;
        }
        if (button.isPrimary || isPressed || isHovered) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(button.isPrimary ? colors.accent.darker(isPressed   ? 120
                                                                     : isHovered ? 108
                                                                                 : 100)
                             : isPressed      ? colors.pressed
                                              : colors.hover);
            painter.drawRoundedRect(place, buttonRadius, buttonRadius);
        }
        paintIcon(painter, button, place.center(),
                  button.isPrimary ? colors.accentText : colors.text);
    }
    if (look.showsToolTip && look.hovered >= 0) {
        toolTipLabel(toolbar, look).paint(painter, toolTipPlace(toolbar, look));
    }
}

}  // namespace kestrio
